#pragma once
// The windows round a batch, and what they share.

#include "batch/ascii_warn.h"
#include "batch/mff_cancel.h"
#include "batch/multi_errors.h"
#include "batch/working2.h"

class BatchWindows {
 public:
  BatchWindows(WindowSystem& windows, Messages& messages, const String& appFolder,
               const WhileLocked& whileLocked);

  // Lets the user choose one of the last runs and undo it.
  void ShowUndo();
  // Takes back the run of State, all of it and without a question. Only a failure is told.
  void UndoAbortedRun();

  BackupRing Ring;
  BatchState State;
  ::Working2 Working2;
  ::ASCIIWarn ASCIIWarn;
  ::UndoMFF UndoMFF;
  ::UndoMFF2 UndoMFF2;
  ::MultiErrors MultiErrors;
  ::MFFCancel MFFCancel;

 private:
  WindowSystem& windows_;
  Messages& messages_;
};
