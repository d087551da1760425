#pragma once
// Asks which custom tool is to be changed or deleted.

#include "custom/listed_tools.h"
#include "editor/messages.h"

class EditTool1 : public Form {
 public:
  EditTool1(WindowSystem& windows, Messages& messages, ListedTools& listed);
  Layout Content() override;
  void CloseByFrame() override { Command2.Click(); }

  // What the menu entry does.
  void Begin();
  // What was chosen: number and, in proper case, name.
  std::pair<int, String> Chosen() const;

  Label Label1;
  ComboBox Combo1;
  CommandButton Command1;
  CommandButton Command2;

  // The user has chosen a tool.
  std::function<void()> OnChosen;

 private:
  void List();
  void Choose();

  Messages& messages_;
  ListedTools& listed_;
};
