#pragma once
// What the settings windows of the tools share. The controls keep their values when the window
// goes, whichever way; whoever showed it looks at Cancelled.

#include "editor/messages.h"
#include "platform/form.h"

class SettingsForm : public Form {
 public:
  void CloseByFrame() override { Close(true); }
  // Goes on with the settings as they stand.
  String AnswerUnattended() override {
    Close(false);
    return {};
  }

  // The user has refused; set while the window is away.
  bool Cancelled = false;

 protected:
  SettingsForm(WindowSystem& windows, Messages& messages) : Form(windows), messages_(messages) {}

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
};
