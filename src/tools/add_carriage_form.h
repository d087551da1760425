#pragma once
// Asks where "Add Trailing Carriage Returns" breaks the lines. Its controls are the tool's
// settings, whoever writes them.

#include "editor/messages.h"

class AddCarriageForm : public Form {
 public:
  AddCarriageForm(WindowSystem& windows, Messages& messages);
  Layout Content() override;
  void CloseByFrame() override { Command2.Click(); }
  // Goes on with the settings as they stand.
  String AnswerUnattended() override;

  // The user has refused; set while the window is away.
  bool Cancelled = false;

  Label Label1;
  TextBox Text1;    // position in characters
  CheckBox Check1;  // 1 breaks at words
  CommandButton Command1;
  CommandButton Command2;

 private:
  void Ok();

  Messages& messages_;
};
