#include "batch/mass_convert2.h"

#include <algorithm>

#include "tools/settings_line.h"

namespace {

constexpr StringView kNotSet = u"not set yet";
// Of the settings beside their button, in characters; the rest is in the tip.
constexpr std::size_t kLongestLine = 40;
constexpr std::size_t kLongestTip = 1000;

// Null for a tool without settings, and for a custom tool, which has them inside.
const Tool* ToolWithSettings(const String& name) {
  const Tool* tool = FindTool(name);
  return tool && tool->Settings ? tool : nullptr;
}

String Elided(const String& text, std::size_t longest) {
  if (text.size() <= longest) return text;
  const bool cutsPair = IsHighSurrogate(text[longest - 1]);
  return text.substr(0, longest - (cutsPair ? 1 : 0)) + u'\u2026';
}

}  // namespace

MassConvert2::MassConvert2(WindowSystem& windows, Messages& messages, ToolState& tools,
                           const std::map<int, String>& customToolNames)
    : Form(windows),
      messages_(messages),
      tools_(tools),
      customToolNames_(customToolNames),
      rows_{{{Label3, Combo1, Command3, Label8, SettingsGiven1},
             {Label4, Combo2, Command4, Label9, SettingsGiven2},
             {Label5, Combo3, Command5, Label10, SettingsGiven3}}} {
  Caption = u"Multiple File Flurn";
  Label2.Caption = u"Step 3: Select Tools";
  Label2.Heading = true;
  Label6.Caption =
      u"Select the tools to use below that you want to use on each file.  The tools will be used "
      u"in the order shown, starting with tool 1 and ending on tool 3.";
  Label7.Caption =
      u"All tools will build on each other.  If one of your tools is \"Convert to HTML\" or "
      u"\"Convert from HTML\" and you also use another tool after this, then the converted file "
      u"(.html with Convert To and .txt with Convert From) is what will be used to process any "
      u"additional tools.";
  Label6.WordWrap = Label7.WordWrap = true;
  for (int number = 1; ToolRow & row : rows_) {
    row.Number.Caption = u"Tool " + Str(number) + u":";
    row.List.OnClick = [this, &row] { Choose(row); };
    // On one line where the screen is wide enough.
    row.Line.WordWrap = true;
    row.Settings.Caption = u"Settings";
    row.Settings.AccessibleName = u"Settings of tool " + Str(number);
    row.Settings.OnClick = [this, number] { SetMultiFlags(number); };
    ++number;
  }
  Command1.Caption = u"&Next";
  Command1.Default = true;
  Command1.OnClick = [this] { Next(); };
  Command2.Caption = u"C&ancel";
  Command2.Cancel = true;
  Command2.OnClick = [this] { Hide(); };
  Columns = 100;
}

Layout MassConvert2::Content() {
  Layout tools = Grid(4, {});
  for (ToolRow& row : rows_)
    tools.Items.insert(tools.Items.end(), {row.Number, row.List, row.Settings, row.Line});
  return Column(
      {Label2, Label6, tools, Label7, Stretch(), Row({Stretch(), Command1, Command2, Stretch()})});
}

void MassConvert2::Load() {
  SettingsGiven1 = SettingsGiven2 = SettingsGiven3 = false;
  FillLists();
}

void MassConvert2::UpdateMultiToolList() {
  if (Loaded()) FillLists();
}

void MassConvert2::Activated() {
  if (Combo1.List.Get() != Offered()) FillLists();
  for (const ToolRow& row : rows_) ShowLine(row);
}

std::vector<String> MassConvert2::Offered() const {
  std::vector<String> offered = OfferedTools(ToolUse::Pass);
  for (const auto& [number, name] : customToolNames_)
    offered.push_back(String(kCustomToolPrefix) + name);
  return offered;
}

void MassConvert2::FillLists() {
  const std::vector<String> offered = Offered();
  for (ToolRow& row : rows_) {
    row.List.List = offered;
    row.List.Text = String(kNoTool);
    Choose(row);
  }
}

void MassConvert2::Choose(ToolRow& row) {
  row.Settings.Enabled = ToolWithSettings(row.List.Text) != nullptr;
  if (!row.Settings.Enabled) row.Values = {};
  ShowLine(row);
}

bool MassConvert2::KeepsOwn(const ToolRow& row) {
  const Tool* tool = ToolWithSettings(row.List.Text);
  return tool && tool->Settings->Empty().index() == row.Values.index();
}

void MassConvert2::ShowLine(const ToolRow& row) {
  const Tool* tool = ToolWithSettings(row.List.Text);
  String line;
  if (tool && KeepsOwn(row))
    line = SettingsLine(row.Values);
  else if (tool && row.SettingsGiven)
    line = SettingsLine(SettingsInWindow(*tool, tools_));
  else if (tool)
    line = kNotSet;
  row.Line.Caption = Elided(line, kLongestLine);
  row.Line.ToolTipText = line.size() > kLongestLine ? Elided(line, kLongestTip) : String();
}

void MassConvert2::SetMultiFlags(int number) {
  ToolRow& row = rows_.at(static_cast<std::size_t>(number) - 1);
  const Tool* tool = ToolWithSettings(row.List.Text);
  if (tool == nullptr) return;
  SettingsForm& form = tool->Settings->Form(tools_);
  form.Cancelled = false;
  form.Use(row.Values);
  if (const auto chosen = form.Ask()) {
    row.SettingsGiven = true;
    row.Values = *chosen;
  }
  ShowLine(row);
}

std::array<BatchPass, kPasses> MassConvert2::Passes() const {
  std::array<BatchPass, kPasses> passes;
  for (std::size_t i = 0; i < kPasses; ++i) {
    passes[i].Tool = rows_[i].List.Text;
    if (KeepsOwn(rows_[i])) passes[i].Settings = rows_[i].Values;
  }
  return passes;
}

bool MassConvert2::AnyTool() const {
  return std::any_of(rows_.begin(), rows_.end(), [](const ToolRow& row) {
    return !row.List.Text.Get().empty() && row.List.Text.Get() != kNoTool;
  });
}

bool MassConvert2::MayGoOn() {
  if (!AnyTool()) {
    messages_.Notice(
        u"You must select at least 1 tool to use on the files in order to continue to Step 4.");
    return false;
  }
  for (std::size_t i = 0; i < kPasses; ++i) {
    if (rows_[i].SettingsGiven || !rows_[i].Settings.Enabled) continue;
    messages_.Notice(
        u"The tool you have selected for Tool #" + Str(static_cast<long long>(i) + 1) +
        u" requires additional information.  You need to click the settings button next to that "
        u"tool to tell it what settings to use during flurning.");
    rows_[i].Settings.SetFocus();
    return false;
  }
  return true;
}

void MassConvert2::Next() {
  if (!MayGoOn()) return;
  SettingsGiven1 = SettingsGiven2 = SettingsGiven3 = false;
  Hide();
  OnNext();
  tools_.HTML.Cancelled = tools_.SearchReplaceForm.Cancelled = tools_.AddCarriageForm.Cancelled =
      false;
}
