#pragma once
// What a run without a window does when it is ended from outside.

#include "text/text.h"

// A file that goes when SIGINT, SIGTERM or SIGHUP ends the program while the object lives. One at a
// time.
class RemovedOnSignal {
 public:
  explicit RemovedOnSignal(const String& path);
  RemovedOnSignal(const RemovedOnSignal&) = delete;
  RemovedOnSignal& operator=(const RemovedOnSignal&) = delete;
  ~RemovedOnSignal();
};

// Such a signal waits until the object goes. One at a time.
class SignalsHeld {
 public:
  SignalsHeld();
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;
  ~SignalsHeld();

 private:
  void (*handlers_[3])(int);
};

// From now on such a signal removes that file before it ends the program as it always does.
void TidyUpOnSignals();
