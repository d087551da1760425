#include "tools/line_spacing.h"

#include "tools/lines/blank_ends.h"
#include "tools/tool_frame.h"

namespace {

constexpr char16_t kTab = u'\t';
constexpr StringView kIndent = u"   ";

void DoubleSpaces(LineSource& in, LineSink& out) {
  for (bool first = true; !in.AtEnd(); first = false) {
    const StringView line = in.ReadLine();
    if (!first) {
      if (IsBlank(line)) continue;
      out.Print({});
    }
    out.Print(line);
  }
}

void DropBlankLines(LineSource& in, LineSink& out) {
  while (!in.AtEnd()) {
    const StringView line = in.ReadLine();
    if (!IsBlank(line)) out.Print(line);
  }
}

void SetOffIndentedLines(LineSource& in, LineSink& out) {
  while (!in.AtEnd()) {
    const StringView line = in.ReadLine();
    if (!IsBlank(line) && (line.front() == kTab || line.starts_with(kIndent))) out.Print({});
    out.Print(line);
  }
}

}  // namespace

void AddDoubleSpc(ToolContext& context) { RunLineTool(context, DoubleSpaces); }

void RemoveDoubleSpc(ToolContext& context) { RunLineTool(context, DropBlankLines); }

void RemoveBlankLines(ToolContext& context) { RunTableTool(context, DropBlankEnds); }

void AddBlankParag(ToolContext& context) { RunLineTool(context, SetOffIndentedLines); }
