#pragma once
// The window of one form, from its first showing until the form is unloaded or gone.

#include <QPointer>
#include <QWidget>
#include <memory>

#include "platform/qt/bindings.h"
#include "platform/qt/layout_builder.h"
#include "platform/window/form.h"

class FormView {
 public:
  explicit FormView(Form& form);
  FormView(const FormView&) = delete;
  FormView& operator=(const FormView&) = delete;
  ~FormView();

  // Shows the window over `parent`, which may be null.
  void Show(bool modal, QWidget* parent);
  QWidget* Window() const { return window_; }
  bool IsMain() const { return style_ == Form::Frame::Main; }

  // Whether the window was shown a moment ago and the desktop has not put it up yet.
  bool AwaitsScreen();
  void AwaitNoLonger() { awaitsScreen_ = false; }

  // Emitted when the window goes, by Hide or for good.
  Signal Gone;

 private:
  void Build();
  void FindButtons();
  void SetTabOrder();
  void Fit();
  void FocusFirst();
  void OnClose();
  void OnEscape();
  void OnReturn();

  Form& form_;
  const Form::Frame style_;
  QPointer<QWidget> window_;
  std::unique_ptr<Bindings> bindings_;
  std::vector<PlacedControl> controls_;
  QWidget* default_ = nullptr;
  QWidget* cancel_ = nullptr;
  bool shownBefore_ = false;
  bool awaitsScreen_ = false;
};
