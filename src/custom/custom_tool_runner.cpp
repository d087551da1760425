#include "custom/custom_tool_runner.h"

#include <algorithm>
#include <map>

#include "custom/custom_tool_record.h"
#include "platform/system/text_file.h"
#include "text/runtime_error.h"
#include "tools/file_run.h"
#include "tools/tool_chain.h"

namespace {

// What the tools are set to, by kind: what their windows hold, until a step is set otherwise.
class CurrentSettings {
 public:
  explicit CurrentSettings(ToolState& tools) : tools_(tools) {}

  // For a step. One that is not set runs with what the one before it, or the window, had.
  const ToolSettings& For(const ToolStep& step, const SettingKind& kind) {
    ToolSettings& current = current_.try_emplace(&kind, kind.Form(tools_).Settings()).first->second;
    // A program is never taken from elsewhere.
    if (IsSet(step.Settings) || !kind.CanShow) current = step.Settings;
    return current;
  }

 private:
  ToolState& tools_;
  std::map<const SettingKind*, ToolSettings> current_;
};

// Asks for the settings of a step, beginning with its own; the window then holds what it held.
std::optional<ToolSettings> AskForStep(SettingsForm& form, const ToolSettings& settings,
                                       const SharedFields& fields) {
  const ToolSettings before = form.Settings();
  form.Use(settings);
  form.TakeDefaults(fields);
  auto chosen = form.Ask();
  form.Use(before);
  return chosen;
}

void RunStep(ToolContext& context, const ToolStep& step, CurrentSettings& current) {
  const Tool* tool = FindTool(step.Name);
  if (tool == nullptr) return;
  if (!tool->Settings) return tool->Run(context, {});
  const ToolSettings& settings = current.For(step, *tool->Settings);
  if (!step.ShowSettings || context.File != nullptr) return tool->Run(context, settings);
  if (IsBlank(*context.RichTextBox1.SharedText())) return;
  // A step that the user cancels does nothing.
  if (const auto chosen = AskForStep(tool->Settings->Form(context.Tools), settings, context.Fields))
    tool->Run(context, *chosen);
}

}  // namespace

CustomToolResult CustomToolRunner::Run(ToolContext& context, int number) {
  CustomToolResult result;
  std::vector<const ToolStep*> steps;
  CustomTool tool;
  try {
    tool = ReadCustomTool(context.Fields.CustomToolFile, number);
    for (const ToolStep& step : tool.Steps) {
      if (FindTool(step.Name) != nullptr) steps.push_back(&step);
    }
    ToolChain chain(context);
    CurrentSettings current(context.Tools);
    while (!steps.empty()) {
      const ToolStep& step = *steps.front();
      const int notices = context.Messages.NoticeCount();
      RunStep(chain.Context(), step, current);
      const bool done = context.Messages.NoticeCount() == notices;
      (done ? result.Done : result.NotDone).push_back(step.Name);
      steps.erase(steps.begin());
      if (!chain.Next()) return result;
    }
  } catch (const std::exception& error) {
    for (const ToolStep* step : steps) result.NotDone.push_back(step->Name);
    result.Cause = FromUtf8(error.what());
  }
  return result;
}

void CustomToolRunner::RunOnFile(ToolContext& context, CustomToolPass& pass) {
  if (std::exchange(pass.SettingsPending, false)) AskSettings(context.Tools, pass);
  CurrentSettings current(context.Tools);
  FileRun& run = *context.File;
  for (const ToolStep& step : pass.Tool.Steps) {
    if (FindTool(step.Name) == nullptr) continue;
    run.Next();
    RunStep(context, step, current);
    if (step.Name == kFromHtml && pass.RenameToTxt) pass.RenameToTxt();
    if (step.Name == kToHtml && pass.RenameToHtml) pass.RenameToHtml();
  }
  if (!run.HasResult()) {
    throw RuntimeError(kFileNotFound, ToUtf8(run.Path()) + ": the tools have made no result");
  }
}

void CustomToolRunner::AskSettings(ToolState& tools, CustomToolPass& pass) {
  const auto shows = [](const ToolStep& step) { return step.ShowSettings; };
  if (std::none_of(pass.Tool.Steps.begin(), pass.Tool.Steps.end(), shows)) return;
  CustShowWinNotice.ToolPass = pass.Number;
  CustShowWinNotice.ShowModal();
  CurrentSettings current(tools);
  for (ToolStep& step : pass.Tool.Steps) {
    const Tool* tool = FindTool(step.Name);
    if (tool == nullptr || !tool->Settings) continue;
    const ToolSettings& settings = current.For(step, *tool->Settings);
    if (!step.ShowSettings) continue;
    SettingsForm& form = tool->Settings->Form(tools);
    const ToolSettings before = form.Settings();
    form.Use(settings);
    form.ShowModal();
    // What the window then holds is taken, whichever button was used.
    step.Settings = form.Settings();
    form.Use(before);
  }
}
