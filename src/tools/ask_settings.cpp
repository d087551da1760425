#include "tools/ask_settings.h"

void AskSettingsAndRun(ToolContext& context, SettingsForm& form, void (*tool)(ToolContext&)) {
  if (IsBlank(*context.RichTextBox1.SharedText())) return;
  const SettingValues values = form.Values();
  form.ShowModal();
  if (!form.Cancelled) return tool(context);
  form.SetValues(values);
  context.Fields.ToolUndoPending = false;
}
