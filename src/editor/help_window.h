#pragma once
// The program's own help: a list of topics and the page of one of them.

#include "platform/window/form.h"

class HelpWindow : public Form {
 public:
  explicit HelpWindow(WindowSystem& windows);
  Layout Content() override;

  // The page that the window shows; the first one for a number that is none.
  void Choose(int topic);

  Label Label1;
  ComboBox Combo1;  // titles
  TextBox Text1;    // the page
  CommandButton Command1;

 private:
  void ShowPage();
};
