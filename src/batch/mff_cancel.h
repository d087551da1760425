#pragma once
// Tells where a batch was cancelled, and offers its undo.

#include "batch/undo_mff2.h"

class MFFCancel : public Form {
 public:
  MFFCancel(WindowSystem& windows, Messages& messages, BatchState& state, UndoMFF& runs,
            UndoMFF2& files);
  Layout Content() override;
  String AnswerUnattended() override;

  // What to tell; set it before the window is shown.
  String NoticeMessage;

  Label Label1;
  Label Label2;
  CommandButton Command1;
  CommandButton Command2;

 protected:
  void Load() override;

 private:
  void Undo();

  Messages& messages_;
  BatchState& state_;
  UndoMFF& runs_;
  UndoMFF2& files_;
};

// Selects the last run in the list of runs; where it is not there, says so and returns false.
bool ChooseRun(UndoMFF& runs, const BatchState& state, Messages& messages);
