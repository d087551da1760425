#pragma once
// Plays a custom tool on the editor, or on a file as one pass of a batch.

#include <vector>

#include "custom/cust_show_win_notice.h"
#include "custom/custom_tool.h"

// What has become of a custom tool on the editor.
struct CustomToolResult {
  // Names of the steps that did their work, in order, and of those that failed or were not come to.
  std::vector<String> Done;
  std::vector<String> NotDone;
  // What ended the run before its end; empty where nothing did. A tool that tells the user of a
  // failure of its own does not.
  String Cause;

  bool Whole() const { return NotDone.empty() && Cause.empty(); }
};

// A custom tool as one pass of a batch over many files.
struct CustomToolPass {
  CustomTool Tool;
  // 1 to 3.
  int Number = 1;
  // The user has not yet been asked for the settings of the steps that want it. What is chosen
  // there goes into the steps.
  bool SettingsPending = true;
  // Called after a step that turns HTML into text, and one that makes HTML, when it has made its
  // result.
  std::function<void()> RenameToTxt{};
  std::function<void()> RenameToHtml{};
};

class CustomToolRunner {
 public:
  explicit CustomToolRunner(WindowSystem& windows) : CustShowWinNotice(windows) {}

  // Runs the tool of this number in the custom tool file on the editor. TempFile1 holds the text
  // from before the first step afterwards, and the settings windows hold what they held. A failure
  // ends the run; what the steps before have done stays.
  CustomToolResult Run(ToolContext& context, int number);

  // Runs the steps on the file of the context, whose result is then that of all of them.
  // RuntimeError; 53 when no step made anything.
  void RunOnFile(ToolContext& context, CustomToolPass& pass);

  ::CustShowWinNotice CustShowWinNotice;

 private:
  void AskSettings(ToolState& tools, CustomToolPass& pass);
};
