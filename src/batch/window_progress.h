#pragma once

#include "batch/batch_progress.h"
#include "batch/working2.h"

// The progress of a batch in its window.
class WindowProgress : public BatchProgress {
 public:
  WindowProgress(WindowSystem& windows, ::Working2& working2)
      : windows_(windows), working2_(working2) {}

  void Begin() override;
  void Status(const String& text) override;
  void File(std::size_t file, std::size_t of) override { working2_.ShowFile(file, of); }
  bool Cancelled() override;
  bool Pause(int milliseconds) override;
  void End() override { working2_.Unload(); }

 private:
  WindowSystem& windows_;
  ::Working2& working2_;
};
