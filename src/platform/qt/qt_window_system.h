#pragma once

#include <QApplication>
#include <map>
#include <optional>

#include "platform/qt/form_view.h"
#include "platform/qt/qt_clipboard.h"
#include "platform/window/window_system.h"

class QtWindowSystem : public WindowSystem {
 public:
  // Keeps the application alive; null where another one owns it. One must exist.
  explicit QtWindowSystem(std::unique_ptr<QApplication> application = nullptr);
  // Leaves a text that the program put on the clipboard there.
  ~QtWindowSystem() override;

  void Show(Form& form) override;
  void RunModal(Form& form) override;
  void Forget(Form& form) override;
  void DoEvents() override;
  void Wait(int milliseconds) override;
  long long Milliseconds() const override;
  int Run() override;
  void Quit(int status) override;
  bool Attended() const override { return true; }
  int ScreenFontSize() const override;
  std::unique_ptr<Timer> CreateTimer() override;
  std::unique_ptr<RichTextBox> CreateRichTextBox() override;
  std::unique_ptr<CommonDialog> CreateCommonDialog() override;
  ::Clipboard& Clipboard() override { return clipboard_; }

  // The window of a form that has been shown; null before that.
  QWidget* WindowOf(const Form& form) const;

 private:
  FormView& ViewOf(Form& form);
  QWidget* ParentFor(const Form& form) const;
  void AwaitExposure();

  std::unique_ptr<QApplication> application_;
  QtClipboard clipboard_;
  std::map<const Form*, std::unique_ptr<FormView>> views_;
  std::shared_ptr<QString> lastFolder_ = std::make_shared<QString>();
  std::optional<int> quit_;
};
