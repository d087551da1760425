#include "platform/console/console_window_system.h"

#include <chrono>
#include <iostream>
#include <thread>

#include "platform/console/string_rich_text_box.h"
#include "platform/system/steady_clock.h"
#include "text/runtime_error.h"

namespace {

// Never fires: there are no events between which it could.
class StillTimer : public Timer {
 public:
  void SetInterval(int) override {}
  void SetEnabled(bool enabled) override { enabled_ = enabled; }
  bool Enabled() const override { return enabled_; }

 private:
  bool enabled_ = false;
};

class CancelledDialog : public CommonDialog {
 public:
  void ShowOpen() override { throw RuntimeError(kDialogCancelled, "no file was chosen"); }
  void ShowSave() override { ShowOpen(); }
};

}  // namespace

void ConsoleWindowSystem::Show(Form&) {}

void ConsoleWindowSystem::RunModal(Form& form) {
  String message = form.AnswerUnattended();
  std::erase(message, kCr);
  if (!message.empty()) std::cerr << "wordflurn: " << ToUtf8(message) << std::endl;
  // A form that refuses to go would keep its caller waiting for ever.
  if (form.Visible) form.Hide();
}

void ConsoleWindowSystem::Wait(int milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

long long ConsoleWindowSystem::Milliseconds() const { return SteadyMilliseconds(); }

std::unique_ptr<Timer> ConsoleWindowSystem::CreateTimer() { return std::make_unique<StillTimer>(); }

std::unique_ptr<RichTextBox> ConsoleWindowSystem::CreateRichTextBox() {
  return std::make_unique<StringRichTextBox>();
}

std::unique_ptr<CommonDialog> ConsoleWindowSystem::CreateCommonDialog() {
  return std::make_unique<CancelledDialog>();
}

::Clipboard& ConsoleWindowSystem::Clipboard() { return clipboard_; }
