#pragma once
// What the program asks of the system that shows windows. Three implementations: Qt, console, and
// the scripted one of the tests. Everything runs on one thread.

#include <functional>
#include <memory>

#include "platform/window/common_dialog.h"
#include "platform/window/form.h"
#include "platform/window/rich_text_box.h"

// Calls back after each interval while it is enabled, between other events. Enabling it anew starts
// the interval anew.
class Timer {
 public:
  virtual ~Timer() = default;
  // Milliseconds, above 0.
  virtual void SetInterval(int milliseconds) = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual bool Enabled() const = 0;
  std::function<void()> OnTimer;
};

// Text has CR LF line ends on this side and LF line ends for other programs.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual bool HasText() const = 0;
  virtual String GetText() const = 0;
  // The text stays there after this program has ended.
  virtual void SetText(StringView text) = 0;
  // The text as it stands there, line ends and all.
  virtual String GetRawText() const = 0;
  virtual void SetRawText(StringView text) = 0;
  virtual void Clear() = 0;
  // Grows with each change of what it holds, whoever makes it.
  virtual long long Changes() const = 0;
};

class WindowSystem {
 public:
  virtual ~WindowSystem() = default;

  // For Form only: other code calls the methods of the form.
  virtual void Show(Form& form) = 0;
  // Returns when the form is no longer visible.
  virtual void RunModal(Form& form) = 0;
  // Drops whatever is kept for the form. It may be shown again later.
  virtual void Forget(Form& form) = 0;

  // Lets pending events run.
  virtual void DoEvents() = 0;
  // Lets events run for this long.
  virtual void Wait(int milliseconds) = 0;
  // A clock that only goes forward, in milliseconds.
  virtual long long Milliseconds() const = 0;
  // Runs events until Quit; returns the exit status given to it.
  virtual int Run() = 0;
  virtual void Quit(int status) = 0;

  // Whether a person can answer windows.
  virtual bool Attended() const = 0;
  // Logical pixels per inch of the desktop, horizontally.
  virtual int ScreenFontSize() const = 0;

  virtual std::unique_ptr<Timer> CreateTimer() = 0;
  virtual std::unique_ptr<RichTextBox> CreateRichTextBox() = 0;
  virtual std::unique_ptr<CommonDialog> CreateCommonDialog() = 0;
  virtual ::Clipboard& Clipboard() = 0;
};
