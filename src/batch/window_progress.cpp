#include "batch/window_progress.h"

#include <algorithm>

#include "platform/window/window_system.h"

namespace {

// Between two looks at the Cancel button.
constexpr int kStepMilliseconds = 50;

}  // namespace

void WindowProgress::Begin() {
  working2_.Unload();
  working2_.Show();
  windows_.DoEvents();
}

void WindowProgress::Status(const String& text) {
  working2_.Label3.Caption = text;
  windows_.DoEvents();
}

bool WindowProgress::Cancelled() {
  windows_.DoEvents();
  return working2_.CancelClicked;
}

bool WindowProgress::Pause(int milliseconds) {
  for (; milliseconds > 0 && !working2_.CancelClicked; milliseconds -= kStepMilliseconds)
    windows_.Wait(std::min(milliseconds, kStepMilliseconds));
  return working2_.CancelClicked;
}
