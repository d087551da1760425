#include "batch/list_file.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

#include "platform/system/byte_file.h"
#include "platform/system/files.h"
#include "platform/system/safe_save.h"
#include "text/encoding.h"
#include "text/pattern.h"
#include "text/runtime_error.h"
#include "text/windows1252.h"

namespace {

constexpr FilePattern kPatterns[] = {
    {u"Text and HTML Files (*.txt; *.html)", u"*.txt;*.html;*.htm"},
    {u"Text Files (*.txt)", u"*.txt"},
    {u"HTML Files (*.html; *.htm)", u"*.html;*.htm"},
    {u"Known Text Files (*.txt;*.html;*.htm;*.cgi;*.pl;*.js)",
     u"*.txt;*.html;*.htm;*.cgi;*.pl;*.js"},
    {u"All Files (*.*)", u"*.*"},
};

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

bool CanOpen(const String& path) {
  try {
    TestReadable(path);
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

String InCodePage(std::string_view bytes) {
  String text(bytes.size(), u'\0');
  text.resize(Decode(bytes, Encoding::Windows1252, text.data()).size());
  return text;
}

// What a line names; empty where there is no such file.
String FileOf(std::string_view line) {
  const String asItStands = FromUtf8(line);
  const String trimmed(Trim(asItStands));
  for (const String& name : {asItStands, trimmed, String(Trim(InCodePage(line)))})
    if (CanOpen(name)) return name;
  return {};
}

bool IsAscii(StringView text) {
  return std::all_of(text.begin(), text.end(), [](char16_t c) { return c < 0x80; });
}

bool HoldsStrayByte(StringView text) {
  for (std::size_t i = 0; i < text.size(); ++i)
    if (IsLowSurrogate(text[i]) && (i == 0 || !IsHighSurrogate(text[i - 1]))) return true;
  return false;
}

// The path in the code page; nothing where these bytes would be read as another name.
std::optional<std::string> PageLine(StringView path) {
  std::string bytes;
  for (const char16_t c : path) {
    const auto code = Windows1252Code(c);
    if (!code) return {};
    bytes += static_cast<char>(*code);
  }
  if (!IsAscii(path) && !HoldsStrayByte(FromUtf8(bytes))) return {};
  return bytes;
}

class ListReader {
 public:
  void Line(std::string_view line) {
    if (IsBlank(FromUtf8(line))) return;
    const String file = FileOf(line);
    if (file.empty())
      list_.Missing.emplace_back(Trim(FromUtf8(line)));
    else if (String path = AbsolutePath(file); known_.insert(path).second)
      list_.Files.push_back(std::move(path));
  }
  FileList Take() { return std::move(list_); }

 private:
  FileList list_;
  std::unordered_set<String> known_;
};

}  // namespace

FileList ReadListFile(const String& path) {
  InputFile file(path);
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(file.Size()));
  file.ReadRest([&bytes](std::string_view block) { bytes += block; });
  std::string_view rest = bytes;
  if (rest.starts_with(kUtf8Mark)) rest.remove_prefix(kUtf8Mark.size());
  ListReader reader;
  while (!rest.empty()) {
    const std::size_t end = rest.find_first_of("\r\n");
    reader.Line(rest.substr(0, end));
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
  return reader.Take();
}

void WriteListFile(const String& path, const std::vector<String>& files) {
  std::string page, utf8;
  bool fits = true;
  for (const String& file : files) {
    if (file.find_first_of(kCrLf) != String::npos)
      throw RuntimeError(kInvalidCall, ToUtf8(file) + ": a name with a line break fits in no list");
    const auto line = fits ? PageLine(file) : std::nullopt;
    fits = line.has_value();
    if (fits) page += *line + "\r\n";
    utf8 += ToUtf8(file) + "\r\n";
  }
  SafeSave(path, [&](const ByteSink& sink) { sink(fits ? page : utf8); });
}

std::vector<String> FilesToFlurn(const String& folder) {
  const String path = AbsolutePath(folder);
  std::vector<String> files;
  for (const String& name : FilesIn(path)) {
    if (name.front() != u'.' && FitsPattern(name, kPatterns[0].Pattern))
      files.push_back(JoinPath(path, name));
  }
  return files;
}

std::span<const FilePattern> FilePatterns() { return kPatterns; }
