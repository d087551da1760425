#pragma once
// For runs without a person that need the clipboard: windows answer by themselves.

#include "platform/console/console_window_system.h"

class ClipboardWindows : public ConsoleWindowSystem {
 public:
  explicit ClipboardWindows(WindowSystem& display) : display_(display) {}
  void DoEvents() override { display_.DoEvents(); }
  ::Clipboard& Clipboard() override { return display_.Clipboard(); }

 private:
  WindowSystem& display_;
};
