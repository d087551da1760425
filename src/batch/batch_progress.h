#pragma once
// How a batch shows where it is, and how it learns that it is to stop.

#include "text/text.h"

class BatchProgress {
 public:
  virtual ~BatchProgress() = default;
  virtual void Begin() {}
  virtual void Status(const String& text) = 0;
  // File `file` of `of`, counted from 1, is worked on.
  virtual void File(std::size_t file, std::size_t of) = 0;
  // Whether the user wants the batch to stop. Lets events run.
  virtual bool Cancelled() = 0;
  // Waits as long as a person needs to read and to click; at once where nobody can. True when the
  // user has cancelled meanwhile.
  virtual bool Pause(int milliseconds) = 0;
  // Something else is about to be shown.
  virtual void GiveWay() {}
  virtual void End() {}
};
