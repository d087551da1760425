#pragma once
// A window system without a display: every window is answered as nobody could.

#include "platform/window_system.h"

class ConsoleWindowSystem : public WindowSystem {
 public:
  void Show(Form& form) override;
  // Answers the form by its AnswerUnattended and prints what it has to say on standard error.
  void RunModal(Form& form) override;
  void Forget(Form&) override {}
  void DoEvents() override {}
  void Wait(int milliseconds) override;
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
  struct PrivateClipboard : ::Clipboard {
    bool HasText() const override { return !Content.empty(); }
    String GetText() const override { return Content; }
    void SetText(StringView text) override { Content = text; }
    String GetRawText() const override { return Content; }
    void SetRawText(StringView text) override { Content = text; }
    void Clear() override { Content.clear(); }
    String Content;
  };

  int status_ = 0;
  PrivateClipboard clipboard_;
};
