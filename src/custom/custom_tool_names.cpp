#include "custom/custom_tool_names.h"

#include "platform/system/text_file.h"
#include "text/runtime_error.h"

namespace {

// The number in a line "Tool1:" to "Tool8:"; 0 for any other line.
int ToolNumber(StringView line) {
  constexpr StringView kKey = u"Tool";
  if (line.size() != kKey.size() + 2 || !line.starts_with(kKey) || line.back() != u':') return 0;
  const int number = line[kKey.size()] - u'0';
  return number >= 1 && number <= kMostCustomTools ? number : 0;
}

}  // namespace

CustomToolList ListCustomTools(const std::vector<String>& lines) {
  CustomToolList list;
  for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
    const int number = ToolNumber(lines[i]);
    if (number == 0) continue;
    // The line behind a key is a name, whatever it looks like.
    list.Names[number] = ProperCase(lines[++i]);
    list.Count = number;
  }
  return list;
}

CustomToolList ReadCustomToolNames(const String& path) {
  try {
    return ListCustomTools(ReadDataFile(path));
  } catch (const RuntimeError&) {
    return {};
  }
}
