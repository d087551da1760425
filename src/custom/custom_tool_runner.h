#pragma once
// Plays a custom tool on the editor, or on a file as one pass of a batch.

#include "custom/cust_show_win_notice.h"
#include "custom/custom_tool.h"
#include "tools/tool_context.h"

class CustomToolRunner {
 public:
  explicit CustomToolRunner(WindowSystem& windows) : CustShowWinNotice(windows) {}

  // Runs the tool of this number in the custom tool file.
  //
  // Editor: TempFile1 holds the text from before the first step afterwards, and the settings
  // windows hold what they held. A failure ends the run without a message and gives false; a tool
  // that tells of one itself does not.
  //
  // File: as the tools themselves. The result of all steps stands in TempFile1. RuntimeError; 53
  // when no step made anything.
  bool Run(ToolContext& context, int number);

  // What a batch sets. The pass that runs, 1 to 3.
  int ToolPass = 1;
  // By pass: the user has not yet been asked for the settings of the steps that want it.
  StepTable<bool> PassSettingsPending{};
  // After a step that turns HTML into text, and one that makes HTML.
  std::function<void()> RenameToTxt;
  std::function<void()> RenameToHtml;
  // No step asks for its settings.
  void ClearShowSettings();

  // The steps of the tool that ran last.
  const CustomTool& Steps() const { return tool_; }

  ::CustShowWinNotice CustShowWinNotice;

 private:
  struct Chosen {
    StepTable<AddSettings> Add;
    StepTable<SearchReplaceSettings> Search;
    StepTable<HtmlSettings> Html;
  };

  bool RunOnEditor(ToolContext& context, int number);
  void RunOnFile(ToolContext& context, int number);
  // Does the work for each kind of settings that a step may have: the name of such a step, its
  // settings, what the user chose for it, and the window of its tool.
  template <typename Work>
  void ForEachKind(std::size_t step, ToolState& tools, Work work);
  void FillWindows(ToolState& tools, std::size_t step);
  void AskSettings(ToolState& tools, std::size_t step);
  void UseChosen(ToolState& tools, std::size_t step);
  void RunStep(ToolContext& context, std::size_t step);

  CustomTool tool_;
  // By pass.
  std::array<Chosen, 4> chosen_;
};
