#pragma once
// No exception may travel through Qt's event loop: a handler that fails ends here, and the user is
// told.

#include <QApplication>

// Shows what the exception says, and returns when the user has read it.
void ReportException(std::exception_ptr error);

template <class Handler>
void RunGuarded(Handler&& handler) {
  std::exception_ptr error;
  try {
    handler();
  } catch (...) {
    error = std::current_exception();
  }
  // Outside the catch block, since the report runs an event loop of its own.
  if (error) ReportException(error);
}

// Catches what handlers outside the renderer let through.
class GuardedApplication : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override;
};
