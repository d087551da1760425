#pragma once
// Step 3 of the wizard: up to three tools, with the settings of those that need some.

#include <array>
#include <map>

#include "batch/batch_order.h"

class MassConvert2 : public Form {
 public:
  // customToolNames: by number.
  MassConvert2(WindowSystem& windows, Messages& messages, ToolState& tools,
               const std::map<int, String>& customToolNames);
  Layout Content() override;
  void CloseByFrame() override { Command2.Click(); }
  // The windows of the tools may hold something else than before, and the list of custom tools may
  // be another.
  void Activated() override;

  // A custom tool was changed: offers those that are there, and sets each row to no tool.
  void UpdateMultiToolList();
  // Asks for the settings of row 1, 2 or 3.
  void SetMultiFlags(int row);
  std::array<BatchPass, kPasses> Passes() const;
  bool AnyTool() const;

  // Goes on with the next step, and returns when it has been left.
  std::function<void()> OnNext;
  // Settings were given since the last "Next".
  bool SettingsGiven1 = false;
  bool SettingsGiven2 = false;
  bool SettingsGiven3 = false;

  Label Label2;
  Label Label6;
  // A row for each tool: its list, the button for its settings, and what they are.
  Label Label3;
  ComboBox Combo1;
  CommandButton Command3;
  Label Label8;
  Label Label4;
  ComboBox Combo2;
  CommandButton Command4;
  Label Label9;
  Label Label5;
  ComboBox Combo3;
  CommandButton Command5;
  Label Label10;
  Label Label7;
  CommandButton Command1;
  CommandButton Command2;

 protected:
  void Load() override;

 private:
  struct ToolRow {
    Label& Number;
    ComboBox& List;
    CommandButton& Settings;
    Label& Line;
    bool& SettingsGiven;
    // Kept until a tool without settings is chosen; of another tool than the chosen one perhaps.
    ToolSettings Values{};
  };

  std::vector<String> Offered() const;
  void FillLists();
  void Choose(ToolRow& row);
  // Whether the row keeps settings for its tool.
  static bool KeepsOwn(const ToolRow& row);
  void ShowLine(const ToolRow& row);
  bool MayGoOn();
  void Next();

  Messages& messages_;
  ToolState& tools_;
  const std::map<int, String>& customToolNames_;
  std::array<ToolRow, kPasses> rows_;
};
