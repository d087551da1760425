#include "tools/search_replace.h"

#include "text/runtime_error.h"
#include "tools/lines/replace_engine.h"
#include "tools/tool_frame.h"

void SearchReplace(ToolContext& context, const SearchSettings& settings) {
  ReplaceState& state = context.Tools.Replacing;
  state.ReplaceCount = 0;
  const SettingsProblem tell = [&context](int code, StringView message) {
    if (context.File != nullptr) throw RuntimeError(code, ToUtf8(message));
    context.Messages.Notice(message);
  };
  const bool done = RunLineTool(context, [&](LineSource& in, LineSink& out) {
    if (ReplaceLineByLine(in, out, settings, state)) return;
    Lines lines(in);
    ReplaceInLines(lines, settings, state, tell);
    lines.PrintTo(out);
  });
  if (!done) state.ReplaceCount = 0;
  if (context.File != nullptr || context.CustomToolRunning) return;
  context.Tools.ReplaceFoundNum.ReplaceCount = state.ReplaceCount;
  context.Tools.ReplaceFoundNum.ShowModal();
}
