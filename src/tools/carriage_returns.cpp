#include "tools/carriage_returns.h"

#include "tools/ask_settings.h"
#include "tools/lines/break_lines.h"
#include "tools/lines/break_position.h"
#include "tools/lines/join_lines.h"
#include "tools/tool_frame.h"

void RemoveCarriage(ToolContext& context) { RunLineTool(context, JoinLines); }

void AddCarriage2(ToolContext& context) {
  const AddCarriageForm& settings = context.Tools.AddCarriageForm;
  const std::size_t position = BreakPosition(settings.Text1.Text.Get());
  const bool atWords = settings.Check1.Value == 1;
  RunTableTool(context, [position, atWords](LineSource& in, LineSink& out) {
    WordBreaker words;
    while (!in.AtEnd()) {
      const StringView line = in.ReadLine();
      if (atWords)
        words.Break(line, position, out);
      else
        BreakExactly(line, position, out);
    }
  });
}

void LoadCarriageForm(ToolContext& context) {
  AskSettingsAndRun(context, context.Tools.AddCarriageForm, AddCarriage2);
}
