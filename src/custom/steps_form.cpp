#include "custom/steps_form.h"

#include <algorithm>

namespace {

// Null for a tool that has none.
const SettingKind* SettingsOf(const String& toolName) {
  const Tool* tool = FindTool(toolName);
  return tool ? tool->Settings : nullptr;
}

}  // namespace

StepsForm::StepsForm(WindowSystem& windows, Messages& messages, ToolState& tools)
    : Form(windows),
      messages_(messages),
      tools_(tools),
      rows_{{{Label2, Combo1, Command3, Check1},
             {Label3, Combo2, Command4, Check2},
             {Label4, Combo3, Command5, Check3},
             {Label5, Combo4, Command6, Check4},
             {Label6, Combo5, Command7, Check5}}} {
  Label1.Caption = u"Name:";
  Command1.Default = true;
  Command2.Caption = u"C&ancel";
  Command2.Cancel = true;
  const std::vector<String> offered = OfferedTools(ToolUse::Step);
  int number = 0;
  for (StepRow& row : rows_) {
    const String name = u"#" + Str(++number);
    row.Number.Caption = name + u":";
    row.List.List = offered;
    row.List.OnClick = [this, &row] { Choose(row); };
    row.Settings.Caption = u"Settings";
    row.Settings.AccessibleName = u"Settings " + name;
    row.Settings.OnClick = [this, &row] { AskSettings(row); };
    row.ShowSettings.Caption = u"Show Settings";
    row.ShowSettings.AccessibleName = u"Show Settings " + name;
  }
  ClearSteps();
}

Layout StepsForm::NameAndSteps() {
  Layout steps = Grid(4, {});
  for (StepRow& row : rows_)
    steps.Items.insert(steps.Items.end(), {row.Number, row.List, row.Settings, row.ShowSettings});
  return Column({Row({Label1, Text1}), steps});
}

void StepsForm::Choose(StepRow& row) {
  const SettingKind* kind = SettingsOf(row.List.Text);
  const bool canShow = kind && kind->CanShow;
  row.Settings.Enabled = kind != nullptr;
  row.ShowSettings.Enabled = canShow;
  row.SettingsConfirmed = false;
  if (!canShow) row.Values = {};
}

void StepsForm::AskSettings(StepRow& row) {
  const SettingKind& kind = *SettingsOf(row.List.Text);
  SettingsForm& form = kind.Form(tools_);
  form.Use(row.Values);
  if (const auto chosen = form.Ask()) {
    row.Values = *chosen;
    row.SettingsConfirmed = true;
  }
  // A program is never taken from elsewhere.
  if (!kind.CanShow) form.Use(kind.Empty());
}

void StepsForm::ClearSteps() {
  for (StepRow& row : rows_) {
    row.List.Text = String(kNoTool);
    Choose(row);
    row.ShowSettings.Value = 0;
  }
}

bool StepsForm::ShowSteps(const CustomTool& tool) {
  ClearSteps();
  const std::vector<String> offered = OfferedTools(ToolUse::Step);
  const bool known = std::all_of(tool.Steps.begin(), tool.Steps.end(), [&](const ToolStep& step) {
    return std::find(offered.begin(), offered.end(), step.Name) != offered.end();
  });
  for (std::size_t i = 0; known && i < kMostSteps; ++i) {
    const ToolStep& step = tool.Steps[i];
    StepRow& row = rows_[i];
    row.List.Text = step.Name;
    row.Values = step.Settings;
    row.SettingsConfirmed = !std::holds_alternative<std::monostate>(step.Settings);
    row.ShowSettings.Value = step.ShowSettings ? 1 : 0;
  }
  return known;
}

bool StepsForm::StepsAreComplete() {
  for (const StepRow& row : rows_) {
    if (!row.Settings.Enabled || row.SettingsConfirmed) continue;
    const String number(Trim(row.Number.Caption.Get().substr(0, 2)));
    messages_.Notice(
        u"The tool you have selected for Tool " + number +
        u" requires additional information.  You need to click the settings button next to that "
        u"tool to tell it what it should do when this custom tool is used.");
    row.Settings.SetFocus();
    return false;
  }
  return true;
}

CustomTool StepsForm::Tool(int number) const {
  CustomTool tool;
  tool.Name = Trim(Text1.Text.Get());
  if (tool.Name.empty()) tool.Name = DefaultName(number);
  for (std::size_t i = 0; i < kMostSteps; ++i) {
    const StepRow& row = rows_[i];
    tool.Steps[i] = {row.List.Text, row.Values, row.ShowSettings.Value == 1};
  }
  return tool;
}
