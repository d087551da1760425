#pragma once
// The list of the last ten batch runs, and the common way to one of them.

#include <optional>

#include "batch/batch_state.h"
#include "editor/messages.h"

class UndoMFF : public Form {
 public:
  UndoMFF(WindowSystem& windows, Messages& messages, BackupRing& ring, WhileLocked whileLocked);
  Layout Content() override;
  void CloseByFrame() override { Command2.Click(); }

  // Loads the list anew and selects a run in it. False where it is no longer there.
  bool Choose(const BatchRun& run);
  // The run of the selected row; none where no row is.
  std::optional<BatchRun> Chosen() const;

  // Opens the chosen run.
  std::function<void()> OnChosen;
  // No run was found; there is nothing to show then.
  bool NothingToUndo = false;

  Label Label1;
  Label Label2;
  ListBox List1;  // labels, newest first
  ListBox List2;  // folder numbers, oldest first; never shown
  Label Label3;
  TextBox Text1;
  CommandButton Command1;
  CommandButton Command2;
  CommandButton Command3;

 protected:
  void Load() override;

 private:
  Messages& messages_;
  BackupRing& ring_;
  const WhileLocked whileLocked_;
  // Newest first.
  std::vector<BatchRun> runs_;
};
