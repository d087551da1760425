#include "batch/mff_cancel.h"

#include "platform/window/window_system.h"

MFFCancel::MFFCancel(WindowSystem& windows, Messages& messages, BatchState& state, UndoMFF& runs,
                     UndoMFF2& files)
    : Form(windows), messages_(messages), state_(state), runs_(runs), files_(files) {
  Caption = u"WordFlurn";
  Label1.WordWrap = true;
  Label2.Caption =
      u"You may restore the files which have already been flurned by clicking the Undo button "
      u"below.";
  Label2.WordWrap = true;
  Command1.Caption = u"&OK";
  Command1.Default = true;
  Command1.Cancel = true;
  Command1.OnClick = [this] { Unload(); };
  Command2.Caption = u"Undo this Multiple File Flurn";
  Command2.OnClick = [this] { Undo(); };
  Columns = 60;
}

Layout MFFCancel::Content() {
  return Column({Label1, Label2, Row({Stretch(), Command1, Command2, Stretch()})});
}

void MFFCancel::Load() {
  Label1.Caption = NoticeMessage;
  Windows().DoEvents();
}

String MFFCancel::AnswerUnattended() {
  Unload();
  return NoticeMessage;
}

void MFFCancel::Undo() {
  if (!ChooseRun(runs_, state_, messages_)) return;
  files_.ShowModal();
  // Nothing is left to be undone.
  if (files_.Report == kAllRestored) Unload();
}

bool ChooseRun(UndoMFF& runs, const BatchState& state, Messages& messages) {
  if (runs.Choose(state.Run)) return true;
  messages.Notice(u"Error: Could not find the undo files.");
  return false;
}
