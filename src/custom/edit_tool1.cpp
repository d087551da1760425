#include "custom/edit_tool1.h"

#include <exception>

EditTool1::EditTool1(WindowSystem& windows, Messages& messages, ListedTools& listed)
    : Form(windows), messages_(messages), listed_(listed) {
  Caption = u"Edit a Custom Tool";
  Label1.Caption =
      u"Please select the tool that you want to modify or delete and then click the \"OK\" button.";
  Label1.WordWrap = true;
  Columns = 60;
  Combo1.AccessibleName = u"Custom tool";
  // Which may be too long for the box.
  Combo1.OnClick = [this] { Combo1.ToolTipText = Combo1.Text; };
  Command1.Caption = u"&OK";
  Command1.Default = true;
  Command1.OnClick = [this] { Choose(); };
  Command2.Caption = u"C&ancel";
  Command2.Cancel = true;
  Command2.OnClick = [this] { Hide(); };
}

Layout EditTool1::Content() {
  return Column({Label1, Combo1, Row({Stretch(), Command1, Command2, Stretch()})});
}

void EditTool1::Begin() {
  listed_.ListAnew();
  if (!listed_.List().Names.contains(1))
    return messages_.Notice(
        u"You have not created any custom tools, so therefore there are none to edit.");
  List();
  Combo1.SetFocus();
  ShowModal();
}

void EditTool1::List() {
  std::vector<String> names;
  for (const auto& [number, name] : listed_.List().Names) names.push_back(name);
  Combo1.Clear();
  Combo1.List = std::move(names);
  if (Combo1.ListCount() > 0) Combo1.ListIndex = 0;
}

void EditTool1::Choose() {
  if (Combo1.ListIndex < 0) return;
  bool same = false;
  try {
    same = listed_.AreAsListed();
  } catch (const std::exception& error) {
    return messages_.Notice(FromUtf8(error.what()));
  }
  if (same) {
    Hide();
    if (OnChosen) OnChosen();
    return;
  }
  messages_.Notice(
      u"Another program has changed the custom tools. Please choose from the new list.");
  listed_.ListAnew();
  List();
}

std::pair<int, String> EditTool1::Chosen() const {
  const auto& names = listed_.List().Names;
  return *std::next(names.begin(), std::max(Combo1.ListIndex.Get(), 0));
}
