#pragma once
// Asks where "Add Trailing Carriage Returns" breaks the lines. Its controls hold the
// settings of the tool's next run from the menu.

#include "tools/settings_form.h"

class AddCarriageForm : public SettingsFormOf<AddSettings> {
 public:
  AddCarriageForm(WindowSystem& windows, Messages& messages);
  Layout Content() override;

  Label Label1;
  TextBox Text1;    // position in characters
  CheckBox Check1;  // 1 breaks at words
  CommandButton Command1;
  CommandButton Command2;

 protected:
  bool Check() override;
};
