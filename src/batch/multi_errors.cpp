#include "batch/multi_errors.h"

#include "batch/mff_cancel.h"
#include "editor/help_topics.h"
#include "platform/window/window_system.h"

MultiErrors::MultiErrors(WindowSystem& windows, Messages& messages, BatchState& state,
                         UndoMFF& runs, UndoMFF2& files)
    : Form(windows), messages_(messages), state_(state), runs_(runs), files_(files) {
  Caption = u"Multiple File Flurn Errors";
  Label1.Caption =
      u"The following are files which generated an error during the flurning process. These files "
      u"may have been partially changed prior to the error being generated. All other files not "
      u"listed below were successfully flurned.  The file(s) with which errors were generated and "
      u"causes of the error(s) are listed below.  You may undo any changes made to these files or "
      u"undo the entire operation by clicking the respective buttons below.";
  Label1.WordWrap = true;
  Text1.MultiLine = true;
  Text1.Locked = true;
  Command1.Caption = u"&OK";
  Command1.Default = true;
  Command1.Cancel = true;
  Command1.OnClick = [this] { Unload(); };
  Command2.Caption = u"Undo the entire Multiple File Flurn";
  Command2.OnClick = [this] {
    if (ChooseRun(runs_, state_, messages_)) files_.ShowModal();
  };
  Command3.Caption = u"Undo any flurning done on just these files";
  Command3.OnClick = [this] { UndoFailedFiles(); };
  Command4.Caption = u"Help!";
  Command4.OnClick = [this] { messages_.Help(kHelpBatch); };
  Columns = 80;
  Lines = 24;
}

Layout MultiErrors::Content() {
  return Column({Label1, Text1, Row({Stretch(), Command2, Command3, Stretch()}),
                 Row({Stretch(), Command1, Command4, Stretch()})});
}

void MultiErrors::Load() { Text1.Text = state_.BatchErrorText(); }

String MultiErrors::AnswerUnattended() {
  String text = u"These files failed:" + String(kCrLf) + Text1.Text.Get();
  Unload();
  std::erase(text, kCr);
  if (text.ends_with(kLf)) text.pop_back();
  return text;
}

void MultiErrors::UndoFailedFiles() {
  if (!ChooseRun(runs_, state_, messages_)) return;
  files_.LoadOnce();
  Windows().DoEvents();
  files_.SelectFailedFiles();
  files_.Option1.Value = false;
  files_.Option2.Value = true;
  files_.ShowModal();
}
