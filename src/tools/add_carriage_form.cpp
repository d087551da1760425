#include "tools/add_carriage_form.h"

#include "tools/lines/break_position.h"

AddCarriageForm::AddCarriageForm(WindowSystem& windows, Messages& messages)
    : SettingsFormOf(windows, messages, {Text1, Check1}) {
  Caption = u"Add Trailing Carriage Returns";
  Label1.Caption = u"&Position to Insert Carriage Return:";
  Text1.OnClick = [this] { Text1.SelectAll(); };
  Check1.Caption = u"To the nearest word";
  Use(AddSettings{});
  Wire(Command1, Command2);
}

Layout AddCarriageForm::Content() {
  return Column({Row({Label1, Text1}), Check1, Row({Stretch(), Command1, Command2, Stretch()})});
}

bool AddCarriageForm::Check() {
  const StringView error = CheckBreakPosition(Text1.Text.Get());
  return error.empty() || Refuse(error);
}
