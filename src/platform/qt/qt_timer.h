#pragma once

#include <QTimer>

#include "platform/window/window_system.h"

class QtTimer : public Timer {
 public:
  QtTimer();
  void SetInterval(int milliseconds) override { timer_.setInterval(milliseconds); }
  void SetEnabled(bool enabled) override;
  bool Enabled() const override { return timer_.isActive(); }

 private:
  QTimer timer_;
};
