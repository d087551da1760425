#pragma once

#include <iosfwd>

#include "batch/batch_progress.h"
#include "platform/system/interrupt.h"

// The progress of a batch without a window: one line that is written again and again, where a
// person reads it. Ctrl+C is Cancel. Nothing waits.
class TerminalProgress : public BatchProgress {
 public:
  // shown: whether a person reads `out`.
  TerminalProgress(std::ostream& out, bool shown) : out_(out), shown_(shown) {}
  ~TerminalProgress() override { Clear(); }

  void Status(const String& text) override;
  void File(std::size_t file, std::size_t of) override;
  bool Cancelled() override { return interrupt_.Came(); }
  bool Pause(int) override { return Cancelled(); }
  void GiveWay() override { Clear(); }
  void End() override { Clear(); }

 private:
  void Clear();

  std::ostream& out_;
  bool shown_;
  InterruptAsked interrupt_;
  String place_;
  long long lastShown_ = 0;
  bool dirty_ = false;
};
