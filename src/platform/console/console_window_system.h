#pragma once
// A window system without a display: every window is answered as nobody could.

#include "platform/console/private_clipboard.h"

class ConsoleWindowSystem : public WindowSystem {
 public:
  void Show(Form& form) override;
  // Answers the form by its AnswerUnattended and prints what it has to say on standard error.
  void RunModal(Form& form) override;
  void Forget(Form&) override {}
  void DoEvents() override {}
  void Wait(int milliseconds) override;
  long long Milliseconds() const override;
  // Nothing can happen any more, so this returns at once.
  int Run() override { return status_; }
  void Quit(int status) override { status_ = status; }
  bool Attended() const override { return false; }
  int ScreenFontSize() const override { return 96; }
  std::unique_ptr<Timer> CreateTimer() override;
  std::unique_ptr<RichTextBox> CreateRichTextBox() override;
  std::unique_ptr<CommonDialog> CreateCommonDialog() override;
  // Shared with nobody.
  ::Clipboard& Clipboard() override;

 private:
  int status_ = 0;
  PrivateClipboard clipboard_;
};
