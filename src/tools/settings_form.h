#pragma once
// What the settings windows of the tools share. The controls keep their values when the window
// goes, whichever way; whoever showed it looks at Cancelled.

#include "editor/help_topics.h"
#include "editor/messages.h"
#include "platform/window/form.h"

// What a settings window holds.
struct SettingValues {
  std::vector<String> Texts;
  std::vector<int> Checks;
};

class SettingsForm : public Form {
 public:
  SettingValues Values() const {
    SettingValues values;
    for (const TextBox* box : texts_) values.Texts.push_back(box->Text);
    for (const CheckBox* box : checks_) values.Checks.push_back(box->Value);
    return values;
  }
  // values: what Values() of the same window has given.
  void SetValues(const SettingValues& values) {
    for (std::size_t i = 0; i < texts_.size(); ++i) texts_[i]->Text = values.Texts[i];
    for (std::size_t i = 0; i < checks_.size(); ++i) checks_[i]->Value = values.Checks[i];
  }

  void CloseByFrame() override { Close(true); }
  // Goes on with the settings as they stand.
  String AnswerUnattended() override {
    Close(false);
    return {};
  }

  // The user has refused; set while the window is away.
  bool Cancelled = false;

 protected:
  // texts, checks: the controls that are the settings.
  SettingsForm(WindowSystem& windows, Messages& messages, std::vector<TextBox*> texts,
               std::vector<CheckBox*> checks)
      : Form(windows), messages_(messages), texts_(std::move(texts)), checks_(std::move(checks)) {}

  void Wire(CommandButton& ok, CommandButton& cancel) {
    ok.Caption = u"&OK";
    ok.Default = true;
    ok.OnClick = [this] {
      if (Check()) Close(false);
    };
    cancel.Caption = u"C&ancel";
    cancel.Cancel = true;
    cancel.OnClick = [this] { Close(true); };
  }
  void WireHelp(CommandButton& help, int topic) {
    help.Caption = u"Help!";
    help.OnClick = [this, topic] { messages_.Help(topic); };
  }
  // Whether the settings will do; tells the user what is wrong with them.
  virtual bool Check() = 0;
  // False, and a notice.
  bool Refuse(StringView complaint) {
    messages_.Notice(complaint);
    return false;
  }
  virtual void Close(bool cancelled) {
    Cancelled = cancelled;
    Hide();
  }

  Messages& messages_;

 private:
  std::vector<TextBox*> texts_;
  std::vector<CheckBox*> checks_;
};
