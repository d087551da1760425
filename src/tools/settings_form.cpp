#include "tools/settings_form.h"

std::optional<ToolSettings> SettingsForm::Ask() {
  const ToolSettings before = Settings();
  ShowModal();
  if (!Cancelled) return Settings();
  Use(before);
  return std::nullopt;
}

void SettingsForm::Wire(CommandButton& ok, CommandButton& cancel) {
  ok.Caption = u"&OK";
  ok.Default = true;
  ok.OnClick = [this] {
    if (Check()) Close(false);
  };
  cancel.Caption = u"C&ancel";
  cancel.Cancel = true;
  cancel.OnClick = [this] { Close(true); };
}

void SettingsForm::WireHelp(CommandButton& help, int topic) {
  help.Caption = u"Help!";
  help.OnClick = [this, topic] { messages_.Help(topic); };
}

bool SettingsForm::Refuse(StringView complaint) {
  messages_.Notice(complaint);
  return false;
}

void SettingsForm::Close(bool cancelled) {
  Cancelled = cancelled;
  Hide();
}
