#pragma once
// Asks what to search for and what to put in its place. Its controls hold the settings of
// the next run from the menu.

#include "tools/settings_form.h"

class SearchReplaceForm : public SettingsFormOf<SearchSettings> {
 public:
  SearchReplaceForm(WindowSystem& windows, Messages& messages);
  Layout Content() override;

  // The first click into a text box since the window was shown selects all of it.
  bool FirstClickText1 = true;
  bool FirstClickText2 = true;

  Label Label1;
  Label Label2;
  TextBox Text1;
  TextBox Text2;
  CheckBox Check1;  // by codes
  CheckBox Check2;  // whole words
  CheckBox Check3;  // match case
  CommandButton Command1;
  CommandButton Command2;
  CommandButton Command3;

 protected:
  bool Check() override;
  void Close(bool cancelled) override;
};
