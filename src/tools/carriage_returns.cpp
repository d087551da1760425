#include "tools/carriage_returns.h"

#include "tools/break_lines.h"
#include "tools/break_position.h"
#include "tools/join_lines.h"
#include "tools/tool_frame.h"

void RemoveCarriage(ToolContext& context) { RunLineTool(context, JoinLines); }

void AddCarriage2(ToolContext& context) {
  const AddCarriageForm& settings = context.Tools.AddCarriageForm;
  const std::size_t position = BreakPosition(settings.Text1.Text.Get());
  const auto breakLine = settings.Check1.Value == 1 ? BreakAtWords : BreakExactly;
  RunTableTool(context, [position, breakLine](Lines& lines) {
    for (std::size_t row = 1; row <= lines.Count(); ++row) breakLine(lines[row], position);
  });
}

void LoadCarriageForm(ToolContext& context) {
  if (IsBlank(*context.RichTextBox1.SharedText())) return;
  AddCarriageForm& form = context.Tools.AddCarriageForm;
  const String position = form.Text1.Text;
  const int words = form.Check1.Value;
  form.ShowModal();
  if (form.Cancelled) {
    form.Text1.Text = position;
    form.Check1.Value = words;
    context.Fields.ToolUndoPending = false;
    return;
  }
  AddCarriage2(context);
}
