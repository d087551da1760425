#include "tools/leading_characters.h"

#include "tools/tool_frame.h"

namespace {

constexpr char16_t kTab = u'\t';
constexpr StringView kSignsAndSpaces = u"> ";
constexpr StringView kFourSpaces = u"    ";

// The part of a line that stays.
using LinePart = StringView (*)(StringView line);

void RunOnLines(ToolContext& context, LinePart part) {
  RunLineTool(context, [part](LineSource& in, LineSink& out) {
    while (!in.AtEnd()) out.Print(part(in.ReadLine()));
  });
}

// What stands behind the last sign of the leading ones. Anything may stand between the spaces that
// a line begins with and the first sign.
StringView WithoutSigns(StringView line) {
  if (line.empty() || kSignsAndSpaces.find(line.front()) == StringView::npos) return line;
  const std::size_t firstSign = line.find(u'>');
  if (firstSign == StringView::npos) return line;
  const StringView signs = line.substr(0, line.find_first_not_of(kSignsAndSpaces, firstSign));
  return line.substr(signs.rfind(u'>') + 1);
}

StringView WithoutSpace(StringView line) { return line.substr(line.starts_with(u' ') ? 1 : 0); }

StringView WithoutSpaces(StringView line) {
  const StringView rest = LTrim(line);
  return rest.starts_with(kTab) ? LTrim(rest.substr(1)) : rest;
}

bool IsIndented(StringView line) {
  const StringView start = line.substr(0, kFourSpaces.size());
  return start == kFourSpaces || start.find(kTab) != StringView::npos;
}

}  // namespace

void RemoveLeadingSigns(ToolContext& context) { RunOnLines(context, WithoutSigns); }

void RemoveOneSpace(ToolContext& context) { RunOnLines(context, WithoutSpace); }

void RemoveALLSpace(ToolContext& context) { RunOnLines(context, WithoutSpaces); }

void IndentParag(ToolContext& context) {
  RunTableTool(context, [](LineSource& in, LineSink& out) {
    bool behindBlank = false;
    while (!in.AtEnd()) {
      const StringView line = in.ReadLine();
      const bool blank = IsBlank(line);
      if (behindBlank && !blank && !IsIndented(line)) out.Write(u"\t");
      out.Print(line);
      behindBlank = blank;
    }
  });
}
