#include "custom/custom_tool_store.h"

#include <algorithm>

#include "custom/custom_tool_record.h"
#include "platform/system/files.h"
#include "platform/system/text_file.h"
#include "text/runtime_error.h"

namespace {

using FileLines = std::vector<String>;

[[noreturn]] void ThrowMissing(const String& path, int number) {
  throw RuntimeError(kInvalidCall, ToUtf8(path) + ": custom tool " + std::to_string(number) +
                                       " is not where it should be; the file was not changed");
}

// The tools as the file has them, which must be as many as the program has in mind.
FileLines ReadTools(const String& path, int count) {
  FileLines lines = ReadDataFile(path);
  if (std::find(lines.begin(), lines.end(), RecordKey(count + 1)) != lines.end()) {
    throw RuntimeError(kPermissionDenied,
                       ToUtf8(path) + ": another WordFlurn has changed the custom tools");
  }
  return lines;
}

// A record is found by any line that holds its key.
std::size_t FindRecord(const FileLines& lines, const String& path, int number) {
  const String key = RecordKey(number);
  const auto place = std::find_if(lines.begin(), lines.end(),
                                  [&](const String& line) { return Contains(line, key); });
  if (place == lines.end()) ThrowMissing(path, number);
  return static_cast<std::size_t>(place - lines.begin());
}

// The record behind one by a line that is its key.
std::size_t FindNextRecord(const FileLines& lines, const String& path, std::size_t from,
                           int number) {
  const auto place =
      std::find(lines.begin() + static_cast<std::ptrdiff_t>(from), lines.end(), RecordKey(number));
  if (place == lines.end()) ThrowMissing(path, number);
  return static_cast<std::size_t>(place - lines.begin());
}

// The character counts as 0 where it is no digit.
void LowerNumberAt(String& line, std::size_t index) {
  const char16_t digit = line[index];
  const int value = digit >= u'0' && digit <= u'9' ? digit - u'0' : 0;
  line.replace(index, 1, Str(value - 1));
}

// The lines that carry the number of their tool. Index: of its digit.
void Renumber(String& line) {
  constexpr struct {
    StringView Start;
    std::size_t Index;
    bool Hyphen;  // must stand behind the digit
  } kNumbered[] = {
      {u"Search", 6, true},
      {u"Add", 3, true},
      {u"HTML", 4, true},
      {u"RunProgram", 10, true},
      {u"Custom Tool #", 13, false},
  };
  for (int number = 2; number <= kMostCustomTools; ++number) {
    if (line == RecordKey(number)) {
      line = RecordKey(number - 1);
      return;
    }
  }
  for (const auto& [start, index, hyphen] : kNumbered) {
    if (!line.starts_with(start) || index >= line.size()) continue;
    if (hyphen && (index + 1 >= line.size() || line[index + 1] != u'-')) continue;
    return LowerNumberAt(line, index);
  }
}

void AddLines(FileLines& lines, const FileLines& more, std::size_t from = 0) {
  lines.insert(lines.end(), more.begin() + static_cast<std::ptrdiff_t>(from), more.end());
}

}  // namespace

void CustomToolStore::Append(const CustomTool& tool, int count) const {
  folder_.WhileLocked([&] {
    FileLines lines;
    if (FileExists(path_)) lines = ReadTools(path_, count);
    AddLines(lines, RecordLines(tool, count + 1));
    WriteDataFile(path_, lines);
  });
}

void CustomToolStore::Replace(const CustomTool& tool, int number, int count) const {
  folder_.WhileLocked([&] {
    const FileLines old = ReadTools(path_, count);
    const std::size_t begin = FindRecord(old, path_, number);
    FileLines lines(old.begin(), old.begin() + static_cast<std::ptrdiff_t>(begin));
    AddLines(lines, RecordLines(tool, number));
    if (number != count) AddLines(lines, old, FindNextRecord(old, path_, begin + 1, number + 1));
    WriteDataFile(path_, lines);
  });
}

void CustomToolStore::Delete(int number, int count) const {
  folder_.WhileLocked([&] {
    const FileLines old = ReadTools(path_, count);
    const std::size_t begin = FindRecord(old, path_, number);
    if (count == 1) return DeleteFile(path_);
    FileLines lines(old.begin(), old.begin() + static_cast<std::ptrdiff_t>(begin));
    if (number != count) {
      const std::size_t next = FindNextRecord(old, path_, begin + 1, number + 1);
      const std::size_t behind = lines.size();
      AddLines(lines, old, next);
      for (std::size_t i = behind; i < lines.size(); ++i) Renumber(lines[i]);
      lines[behind] = RecordKey(number);
    }
    WriteDataFile(path_, lines);
  });
}
