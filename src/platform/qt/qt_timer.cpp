#include "platform/qt/qt_timer.h"

#include "platform/qt/event_guard.h"

QtTimer::QtTimer() {
  timer_.setInterval(1000);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
    RunGuarded([this] {
      // A copy, since the handler may destroy the timer.
      if (const auto handler = OnTimer) handler();
    });
  });
}

void QtTimer::SetEnabled(bool enabled) {
  if (enabled)
    timer_.start();
  else
    timer_.stop();
}
