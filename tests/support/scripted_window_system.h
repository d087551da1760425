#pragma once
// A window system whose user is the test. Notices are recorded and answered by OK, questions by the
// next of `Answers`, other modal windows by `OnModal`. The clock moves only by Advance and Wait.

#include <deque>
#include <list>
#include <optional>
#include <set>
#include <vector>

#include "editor/question1.h"
#include "platform/console/private_clipboard.h"

class ScriptedWindowSystem : public WindowSystem {
 public:
  std::vector<String> Notices;
  std::vector<String> Questions;
  std::deque<Answer> Answers;
  std::function<void(Form&)> OnModal;
  // The next file that the user chooses; none is Cancel.
  std::optional<String> ChosenFile;
  // The dialogs that were shown, by their titles.
  std::vector<String> Dialogs;
  std::optional<int> QuitStatus;
  // Every showing of a window that does not wait, by its caption.
  std::vector<String> Shown;
  // Makes the edit controls; none gives those without a display.
  std::function<std::unique_ptr<RichTextBox>()> MakeBox;
  int EventTurns = 0;
  int Dpi = 96;
  // Runs at each wait for events, for what happens outside the program.
  std::function<void()> OnWait;

  void Advance(int milliseconds);

  void Show(Form& form) override;
  void RunModal(Form& form) override;
  void Forget(Form&) override {}
  void DoEvents() override { ++EventTurns; }
  void Wait(int milliseconds) override {
    Advance(milliseconds);
    if (OnWait) OnWait();
  }
  long long Milliseconds() const override { return milliseconds_; }
  int Run() override { return QuitStatus.value_or(0); }
  void Quit(int status) override { QuitStatus = status; }
  bool Attended() const override { return true; }
  int ScreenFontSize() const override { return Dpi; }
  std::unique_ptr<Timer> CreateTimer() override;
  std::unique_ptr<RichTextBox> CreateRichTextBox() override;
  std::unique_ptr<CommonDialog> CreateCommonDialog() override;
  ::Clipboard& Clipboard() override { return clipboard_; }

 private:
  class ScriptedTimer;

  std::set<ScriptedTimer*> timers_;
  long long milliseconds_ = 0;
  PrivateClipboard clipboard_;
};
