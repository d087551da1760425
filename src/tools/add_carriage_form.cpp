#include "tools/add_carriage_form.h"

#include "tools/break_position.h"

AddCarriageForm::AddCarriageForm(WindowSystem& windows, Messages& messages)
    : Form(windows), messages_(messages) {
  Caption = u"Add Trailing Carriage Returns";
  Label1.Caption = u"Position to Insert Carriage Return:";
  Text1.Text = u"76";
  Text1.OnClick = [this] { Text1.SelectAll(); };
  Check1.Caption = u"To the nearest word";
  Check1.Value = 1;
  Command1.Caption = u"&OK";
  Command1.Default = true;
  Command1.OnClick = [this] { Ok(); };
  Command2.Caption = u"C&ancel";
  Command2.Cancel = true;
  Command2.OnClick = [this] {
    Cancelled = true;
    Hide();
  };
}

Layout AddCarriageForm::Content() {
  return Column({Row({Label1, Text1}), Check1, Row({Stretch(), Command1, Command2, Stretch()})});
}

String AddCarriageForm::AnswerUnattended() {
  Cancelled = false;
  Hide();
  return {};
}

void AddCarriageForm::Ok() {
  if (const StringView error = CheckBreakPosition(Text1.Text.Get()); !error.empty()) {
    messages_.Notice(error);
    return;
  }
  Cancelled = false;
  Hide();
}
