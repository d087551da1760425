#include "tools/search_replace.h"

#include "text/runtime_error.h"
#include "tools/ask_settings.h"
#include "tools/lines/replace_engine.h"
#include "tools/tool_frame.h"

void SearchReplace(ToolContext& context) {
  const SearchSettings settings = context.Tools.SearchReplaceForm.Settings();
  ReplaceState& state = context.Tools.Replacing;
  state.ReplaceCount = 0;
  const SettingsProblem tell = [&context](int code, StringView message) {
    if (context.Fields.BatchMode) throw RuntimeError(code, ToUtf8(message));
    context.Messages.Notice(message);
  };
  const bool done = RunLineTool(context, [&](LineSource& in, LineSink& out) {
    if (ReplaceLineByLine(in, out, settings, state)) return;
    Lines lines(in);
    ReplaceInLines(lines, settings, state, tell);
    lines.PrintTo(out);
  });
  if (!done) state.ReplaceCount = 0;
  if (context.Fields.BatchMode || context.Fields.CustomToolRunning) return;
  context.Tools.ReplaceFoundNum.ReplaceCount = state.ReplaceCount;
  context.Tools.ReplaceFoundNum.ShowModal();
}

void LoadSearchReplaceForm(ToolContext& context) {
  AskSettingsAndRun(context, context.Tools.SearchReplaceForm, SearchReplace);
}
