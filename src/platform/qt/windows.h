#pragma once
// The frames of forms. They decide nothing: keys and close box go to the form's view.

#include <QDialog>
#include <QMainWindow>
#include <functional>

#include "platform/window/form.h"

// What a frame asks of the view of its form.
struct FrameHandlers {
  std::function<void()> Close;
  std::function<void()> Escape;
  std::function<void()> Return;
};

// A window of this style, not shown yet.
QWidget* MakeWindow(Form::Frame style, FrameHandlers handlers);
