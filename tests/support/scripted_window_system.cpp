#include "support/scripted_window_system.h"

#include <gtest/gtest.h>

#include "editor/notice1.h"
#include "platform/console/string_rich_text_box.h"
#include "platform/system/files.h"
#include "text/runtime_error.h"

class ScriptedWindowSystem::ScriptedTimer : public Timer {
 public:
  explicit ScriptedTimer(ScriptedWindowSystem& windows) : windows_(windows) {
    windows_.timers_.insert(this);
  }
  ~ScriptedTimer() override { windows_.timers_.erase(this); }
  void SetInterval(int milliseconds) override { interval_ = left_ = milliseconds; }
  void SetEnabled(bool enabled) override {
    enabled_ = enabled;
    left_ = interval_;
  }
  bool Enabled() const override { return enabled_; }

  void Pass() {
    if (!enabled_ || --left_ > 0) return;
    left_ = interval_;
    if (OnTimer) OnTimer();
  }

 private:
  ScriptedWindowSystem& windows_;
  int interval_ = 1;
  int left_ = 1;
  bool enabled_ = false;
};

namespace {

class ScriptedDialog : public CommonDialog {
 public:
  explicit ScriptedDialog(ScriptedWindowSystem& windows) : windows_(windows) {}
  void ShowOpen() override {
    windows_.Dialogs.push_back(DialogTitle);
    if (!windows_.ChosenFile) throw RuntimeError(kDialogCancelled, "no file was chosen");
    FileName = *windows_.ChosenFile;
    FileTitle = FileNameOf(FileName);
  }
  void ShowSave() override { ShowOpen(); }

 private:
  ScriptedWindowSystem& windows_;
};

}  // namespace

void ScriptedWindowSystem::Advance(int milliseconds) {
  milliseconds_ += milliseconds;
  for (int i = 0; i < milliseconds; ++i) {
    const auto timers = timers_;
    for (ScriptedTimer* timer : timers) {
      if (timers_.contains(timer)) timer->Pass();
    }
  }
}

void ScriptedWindowSystem::Show(Form& form) { Shown.push_back(form.Caption); }

void ScriptedWindowSystem::RunModal(Form& form) {
  if (auto* notice = dynamic_cast<Notice1*>(&form)) {
    Notices.push_back(notice->Label1.Caption);
    notice->Command1.Click();
  } else if (auto* question = dynamic_cast<Question1*>(&form)) {
    Questions.push_back(question->Label1.Caption);
    if (Answers.empty()) {
      ADD_FAILURE() << "unexpected question: " << ToUtf8(Questions.back());
      question->CloseByFrame();
      return;
    }
    const Answer answer = Answers.front();
    Answers.pop_front();
    (answer == Answer::Yes  ? question->Command1
     : answer == Answer::No ? question->Command2
                            : question->Command3)
        .Click();
  } else if (OnModal) {
    OnModal(form);
  } else {
    ADD_FAILURE() << "unexpected window: " << ToUtf8(form.Caption.Get());
    form.CloseByFrame();
  }
  EXPECT_FALSE(form.Visible) << "the window is still there: " << ToUtf8(form.Caption.Get());
  form.Hide();
}

std::unique_ptr<Timer> ScriptedWindowSystem::CreateTimer() {
  return std::make_unique<ScriptedTimer>(*this);
}

std::unique_ptr<RichTextBox> ScriptedWindowSystem::CreateRichTextBox() {
  return MakeBox ? MakeBox() : std::make_unique<StringRichTextBox>();
}

std::unique_ptr<CommonDialog> ScriptedWindowSystem::CreateCommonDialog() {
  return std::make_unique<ScriptedDialog>(*this);
}
