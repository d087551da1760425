#pragma once
// What the windows that make and change a custom tool share: its name, and a row for each step.

#include "custom/custom_tool.h"
#include "platform/window/form.h"

class StepsForm : public Form {
 public:
  Label Label1;
  TextBox Text1;  // the tool's name
  CommandButton Command1;
  CommandButton Command2;
  // A row for each step: its tool, the button for its settings, and whether they are asked for when
  // the tool runs.
  Label Label2;
  ComboBox Combo1;
  CommandButton Command3;
  CheckBox Check1;
  Label Label3;
  ComboBox Combo2;
  CommandButton Command4;
  CheckBox Check2;
  Label Label4;
  ComboBox Combo3;
  CommandButton Command5;
  CheckBox Check3;
  Label Label5;
  ComboBox Combo4;
  CommandButton Command6;
  CheckBox Check4;
  Label Label6;
  ComboBox Combo5;
  CommandButton Command7;
  CheckBox Check5;

 protected:
  StepsForm(WindowSystem& windows, Messages& messages, ToolState& tools);

  Layout NameAndSteps();
  // Sets all rows to no tool; none of them asks for settings.
  void ClearSteps();
  // Puts the steps of a tool into the rows. False, and the rows are cleared, where one of them is
  // in no list.
  bool ShowSteps(const CustomTool& tool);
  // Whether all steps have the settings that they need; tells the user of the first that has not.
  bool StepsAreComplete();
  // What the window holds. number: of the default name, which stands for an empty one.
  CustomTool Tool(int number) const;

  static String DefaultName(int number) { return u"Custom Tool #" + Str(number); }

  Messages& messages_;

 private:
  struct StepRow {
    Label& Number;
    ComboBox& List;
    CommandButton& Settings;
    CheckBox& ShowSettings;
    // Of the last tool of the row that was given some.
    ToolSettings Values{};
    // They were given since the tool was chosen, or stored with it.
    bool SettingsConfirmed = false;
  };

  void Choose(StepRow& row);
  void AskSettings(StepRow& row);

  ToolState& tools_;
  std::array<StepRow, kMostSteps> rows_;
};
