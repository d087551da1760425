#include "custom/custom_tool_runner.h"

#include "custom/custom_tool_record.h"
#include "custom/settings_windows.h"
#include "platform/files.h"
#include "platform/runtime_error.h"
#include "platform/scoped_value.h"
#include "tools/catalogue.h"
#include "tools/file_chain.h"
#include "tools/selection.h"
#include "tools/tool_frame.h"

namespace {

bool IsNoStep(StringView name) { return name.empty() || name == kNoTool; }

}  // namespace

bool CustomToolRunner::Run(ToolContext& context, int number) {
  if (!context.Fields.BatchMode) return RunOnEditor(context, number);
  RunOnFile(context, number);
  return true;
}

void CustomToolRunner::ClearShowSettings() {
  for (AddSettings& row : tool_.StepAdd) row.ShowSettings = 0;
  for (SearchReplaceSettings& row : tool_.StepSearch) row.ShowSettings = 0;
  for (HtmlSettings& row : tool_.StepHtml) row.ShowSettings = 0;
}

bool CustomToolRunner::RunOnEditor(ToolContext& context, int number) {
  SharedFields& fields = context.Fields;
  const auto text = context.RichTextBox1.SharedText();
  ToolState& tools = context.Tools;
  const KeptSettings kept(
      {&tools.AddCarriageForm, &tools.SearchReplaceForm, &tools.HTML, &tools.RunProgramSettings});
  const ScopedValue running(fields.CustomToolRunning, true);
  bool done = true;
  try {
    ReadRecord(ReadDataFile(fields.CustomToolFile), number, tool_);
    const ChainSelection selection(context);
    for (std::size_t step = 1; step <= kMostSteps && !selection.IsGone(); ++step) {
      FillWindows(context.Tools, step);
      RunStep(context, step);
    }
  } catch (const std::exception&) {
    // What the steps before have done stays, and can be undone.
    done = false;
  }
  KeepForUndo(fields, *text);
  return done;
}

void CustomToolRunner::RunOnFile(ToolContext& context, int number) {
  SharedFields& fields = context.Fields;
  // The other windows stay as the last step leaves them.
  const KeptSettings kept({&context.Tools.RunProgramSettings});
  DeleteFileQuietly(fields.TempFile1);
  ReadRecord(ReadDataFile(fields.CustomToolFile), number, tool_);
  const auto pass = static_cast<std::size_t>(ToolPass);
  for (std::size_t step = 1; step <= kMostSteps; ++step) {
    FillWindows(context.Tools, step);
    if (PassSettingsPending[pass])
      AskSettings(context.Tools, step);
    else
      UseChosen(context.Tools, step);
    if (step == kMostSteps) PassSettingsPending[pass] = false;
    RunStep(context, step);
    const String& name = tool_.StepNames[step];
    if (name == u"Convert FROM HTML" && RenameToTxt) RenameToTxt();
    if (name == u"Convert TO HTML" && RenameToHtml) RenameToHtml();
    if (step < kMostSteps && !IsNoStep(name) && FileExists(fields.TempFile1)) ChainStep(fields);
  }
  if (!FileExists(fields.TempFile1))
    throw RuntimeError(kFileNotFound, "No step of the custom tool has made a result");
}

// A step that has no value of its own runs with what its window holds from before.
void CustomToolRunner::FillWindows(ToolState& tools, std::size_t step) const {
  if (!tool_.StepAdd[step].Position.empty()) Put(tool_.StepAdd[step], tools.AddCarriageForm);
  if (!tool_.StepSearch[step].SearchText.empty())
    Put(tool_.StepSearch[step], tools.SearchReplaceForm);
  if (!tool_.StepHtml[step].HeaderFile.empty()) Put(tool_.StepHtml[step], tools.HTML);
  tools.RunProgramSettings.Text1.Text = tool_.StepRun[step].Program;
  tools.RunProgramSettings.Text2.Text = tool_.StepRun[step].Arguments;
}

void CustomToolRunner::AskSettings(ToolState& tools, std::size_t step) {
  bool anyShows = false;
  for (std::size_t i = 1; i <= kMostSteps; ++i) anyShows = anyShows || Shows(i);
  if (step == 1 && anyShows) {
    CustShowWinNotice.ToolPass = ToolPass;
    CustShowWinNotice.ShowModal();
  }
  // What the windows then hold is taken, whichever button was used.
  Chosen& chosen = chosen_[static_cast<std::size_t>(ToolPass)];
  if (tool_.StepAdd[step].ShowSettings == 1) {
    tools.AddCarriageForm.ShowModal();
    chosen.Add[step] = SettingsIn(tools.AddCarriageForm);
  }
  if (tool_.StepSearch[step].ShowSettings == 1) {
    tools.SearchReplaceForm.ShowModal();
    chosen.Search[step] = SettingsIn(tools.SearchReplaceForm);
  }
  if (tool_.StepHtml[step].ShowSettings == 1) {
    tools.HTML.ShowModal();
    chosen.Html[step] = SettingsIn(tools.HTML);
  }
}

void CustomToolRunner::UseChosen(ToolState& tools, std::size_t step) const {
  const Chosen& chosen = chosen_[static_cast<std::size_t>(ToolPass)];
  if (tool_.StepAdd[step].ShowSettings == 1) Put(chosen.Add[step], tools.AddCarriageForm);
  if (tool_.StepSearch[step].ShowSettings == 1) Put(chosen.Search[step], tools.SearchReplaceForm);
  if (tool_.StepHtml[step].ShowSettings == 1) Put(chosen.Html[step], tools.HTML);
}

bool CustomToolRunner::Shows(std::size_t step) const {
  return tool_.StepAdd[step].ShowSettings == 1 || tool_.StepSearch[step].ShowSettings == 1 ||
         tool_.StepHtml[step].ShowSettings == 1;
}

void CustomToolRunner::RunStep(ToolContext& context, std::size_t step) {
  const struct {
    StringView StepName;
    int ShowSettings;
  } asking[] = {
      {u"Add Trailing Carriage Returns", tool_.StepAdd[step].ShowSettings},
      {u"Search and Replace", tool_.StepSearch[step].ShowSettings},
      {u"Convert TO HTML", tool_.StepHtml[step].ShowSettings},
  };
  const String& name = tool_.StepNames[step];
  const Tool* tool = FindTool(name);
  if (tool == nullptr) return;
  bool show = false;
  for (const auto& [stepName, showSettings] : asking)
    show = show || (name == stepName && showSettings == 1 && !context.Fields.BatchMode);
  (show ? tool->Click : tool->Run)(context);
}
