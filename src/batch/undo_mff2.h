#pragma once
// The files of a batch run, and their undo.

#include "batch/undo_mff.h"
#include "batch/undo_run.h"

class UndoMFF2 : public Form {
 public:
  UndoMFF2(WindowSystem& windows, Messages& messages, BackupRing& ring, BatchState& state,
           UndoMFF& runs, WhileLocked whileLocked);
  Layout Content() override;
  void CloseByFrame() override { Command2.Click(); }

  // Restores the files, after a question.
  void UndoFiles();
  // Ticks the rows of the files that have failed in the run.
  void SelectFailedFiles();

  // The history has the older head of two lines.
  bool NoNameLine = false;
  // What the last undo has reported; empty when none came to its end.
  String Report;

  Label Label1;
  Label Label3;
  Label Label4;
  ListBox List1;
  OptionButton Option1;
  OptionButton Option2;
  // How far an undo is.
  Label Label5;
  CommandButton Command1;
  CommandButton Command2;

 protected:
  void Load() override;

 private:
  void ListFiles();
  void FollowTicks();
  bool IsSure();
  UndoOrder Order();
  ChangedFiles AskChanged(const BatchRun& run, const std::vector<String>& paths);
  UndoOutcome Restore();
  void Enable(bool enabled);

  Messages& messages_;
  BackupRing& ring_;
  BatchState& state_;
  UndoMFF& runs_;
  const WhileLocked whileLocked_;
};
