#include "batch/ascii_warn.h"

ASCIIWarn::ASCIIWarn(WindowSystem& windows) : Form(windows) {
  Caption = u"Multiple File Flurn";
  Label1.Caption = u"Warning";
  Label1.Heading = true;
  Label2.Caption =
      u"This file appears not to be an ASCII text file.  Files that are not ASCII text files can "
      u"be destroyed by Multiple File Flurn if they are altered. If you are 100% certain that this "
      u"file IS an ASCII text file then click Yes below and the file will be altered.  Otherwise, "
      u"you should click NO and the file will not be altered.";
  Label2.WordWrap = true;
  Label3.WordWrap = true;
  Label4.Caption = u"Do you want to flurn this file?";
  Check1.Caption = u"&Answer all further files of this run alike";
  Command2.Caption = u"&Yes";
  Command1.Caption = u"&NO";
  // What changes nothing.
  Command1.Default = true;
  Command1.Cancel = true;
  const auto answer = [this](bool proceed) {
    return [this, proceed] {
      ProceedWithFile = proceed;
      Hide();
    };
  };
  Command2.OnClick = answer(true);
  Command1.OnClick = answer(false);
  Columns = 70;
}

Layout ASCIIWarn::Content() {
  return Column(
      {Label1, Label2, Label3, Label4, Check1, Row({Stretch(), Command2, Command1, Stretch()})});
}

void ASCIIWarn::Load() {
  ProceedWithFile = false;
  Check1.Value = 0;
  Label3.Caption = u"File: " + CurrentBatchFile;
}

String ASCIIWarn::AnswerUnattended() {
  Command1.Click();
  return {};
}

bool ASCIIWarn::Proceeds(const String& file) {
  if (answerForAll_) return *answerForAll_;
  CurrentBatchFile = file;
  ShowModal();
  const bool proceed = ProceedWithFile;
  if (Check1.Value == 1) answerForAll_ = proceed;
  Unload();
  return proceed;
}
