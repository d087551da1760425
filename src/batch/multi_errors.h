#pragma once
// Tells which files of a batch have failed, and why.

#include "batch/undo_mff2.h"

class MultiErrors : public Form {
 public:
  MultiErrors(WindowSystem& windows, Messages& messages, BatchState& state, UndoMFF& runs,
              UndoMFF2& files);
  Layout Content() override;
  // The failed files.
  String AnswerUnattended() override;

  Label Label1;
  TextBox Text1;
  CommandButton Command1;
  CommandButton Command2;
  CommandButton Command3;
  CommandButton Command4;

 protected:
  void Load() override;

 private:
  void UndoFailedFiles();

  Messages& messages_;
  BatchState& state_;
  UndoMFF& runs_;
  UndoMFF2& files_;
};
