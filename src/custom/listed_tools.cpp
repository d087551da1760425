#include "custom/listed_tools.h"

#include <algorithm>

#include "custom/custom_tool_record.h"
#include "platform/system/files.h"
#include "platform/system/text_file.h"
#include "text/runtime_error.h"

namespace {

// A missing file has no tools.
std::vector<String> LinesOf(const String& path) {
  return FileExists(path) ? ReadDataFile(path) : std::vector<String>();
}

// A change replaces what stands from the first line on that holds the tool's key: this must be the
// tool that was listed, and no name or text of another one.
void CheckPlace(const std::vector<String>& lines, const String& path, int number,
                const String& name) {
  const String key = RecordKey(number);
  const auto place = std::find_if(lines.begin(), lines.end(),
                                  [&](const String& line) { return Contains(line, key); });
  const bool found = place != lines.end() && *place == key && place + 1 != lines.end();
  if (found && ProperCase(place[1]) == name) return;
  throw RuntimeError(kInvalidCall, ToUtf8(path) + ": custom tool " + std::to_string(number) +
                                       " is not where it should be under its name");
}

}  // namespace

ListedTools::ListedTools(const WorkFolder& folder, const String& path)
    : folder_(folder), path_(path), store_(folder, path) {}

void ListedTools::List(std::vector<String> lines, CustomToolList list) {
  lines_ = std::move(lines);
  list_ = std::move(list);
  if (OnListed) OnListed();
}

void ListedTools::ListAnew() {
  std::vector<String> lines;
  try {
    lines = LinesOf(path_);
  } catch (const RuntimeError&) {
    return List({}, {});
  }
  CustomToolList list = ListCustomTools(lines);
  List(std::move(lines), std::move(list));
}

bool ListedTools::AreAsListed() const { return LinesOf(path_) == lines_; }

CustomTool ListedTools::Read(int number, const String& name) const {
  CheckPlace(lines_, path_, number, name);
  return ReadRecord(lines_, number);
}

bool ListedTools::Append(const std::function<CustomTool(int number)>& make) {
  bool added = false;
  folder_.WhileLocked([&] {
    ListAnew();
    const int number = list_.Count + 1;
    if (number > kMostCustomTools) return;
    const CustomTool tool = make(number);
    store_.Append(tool, list_.Count);
    CustomToolList list = list_;
    list.Names[number] = ProperCase(Trim(tool.Name));
    list.Count = number;
    List(LinesOf(path_), std::move(list));
    added = true;
  });
  if (added && OnChanged) OnChanged();
  return added;
}

bool ListedTools::Replace(const CustomTool& tool, int number, const String& name) {
  return Change(number, name, [&] { store_.Replace(tool, number, list_.Count); });
}

bool ListedTools::Delete(int number, const String& name) {
  return Change(number, name, [&] { store_.Delete(number, list_.Count); });
}

bool ListedTools::Change(int number, const String& name, const std::function<void()>& change) {
  bool changed = false;
  folder_.WhileLocked([&] {
    if (AreAsListed()) {
      CheckPlace(lines_, path_, number, name);
      change();
      changed = true;
    }
    ListAnew();
  });
  if (changed && OnChanged) OnChanged();
  return changed;
}
