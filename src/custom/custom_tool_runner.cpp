#include "custom/custom_tool_runner.h"

#include "custom/custom_tool_record.h"
#include "custom/settings_windows.h"
#include "platform/system/files.h"
#include "text/runtime_error.h"
#include "text/scoped_value.h"
#include "tools/catalogue.h"
#include "tools/file_chain.h"
#include "tools/selection.h"
#include "tools/tool_frame.h"

namespace {

bool IsNoStep(StringView name) { return name.empty() || name == kNoTool; }

// The setting that a step has wherever it has any.
const String& Essential(const AddSettings& settings) { return settings.Position; }
const String& Essential(const SearchReplaceSettings& settings) { return settings.SearchText; }
const String& Essential(const HtmlSettings& settings) { return settings.HeaderFile; }

}  // namespace

bool CustomToolRunner::Run(ToolContext& context, int number) {
  if (!context.Fields.BatchMode) return RunOnEditor(context, number);
  RunOnFile(context, number);
  return true;
}

template <typename Work>
void CustomToolRunner::ForEachKind(std::size_t step, ToolState& tools, Work work) {
  Chosen& chosen = chosen_[static_cast<std::size_t>(ToolPass)];
  work(kAddCarriageReturns, tool_.StepAdd[step], chosen.Add[step], tools.AddCarriageForm);
  work(kSearchAndReplace, tool_.StepSearch[step], chosen.Search[step], tools.SearchReplaceForm);
  work(kToHtml, tool_.StepHtml[step], chosen.Html[step], tools.HTML);
}

void CustomToolRunner::ClearShowSettings() {
  const auto clear = [](auto& table) {
    for (auto& row : table) row.ShowSettings = 0;
  };
  clear(tool_.StepAdd);
  clear(tool_.StepSearch);
  clear(tool_.StepHtml);
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
    if (name == kFromHtml && RenameToTxt) RenameToTxt();
    if (name == kToHtml && RenameToHtml) RenameToHtml();
    if (step < kMostSteps && !IsNoStep(name) && FileExists(fields.TempFile1)) ChainStep(fields);
  }
  if (!FileExists(fields.TempFile1))
    throw RuntimeError(kFileNotFound, "No step of the custom tool has made a result");
}

// A step that has no value of its own runs with what its window holds from before.
void CustomToolRunner::FillWindows(ToolState& tools, std::size_t step) {
  ForEachKind(step, tools, [](StringView, const auto& row, auto&, auto& window) {
    if (!Essential(row).empty()) Put(row, window);
  });
  tools.RunProgramSettings.Text1.Text = tool_.StepRun[step].Program;
  tools.RunProgramSettings.Text2.Text = tool_.StepRun[step].Arguments;
}

void CustomToolRunner::AskSettings(ToolState& tools, std::size_t step) {
  bool anyShows = false;
  for (std::size_t i = 1; i <= kMostSteps; ++i) {
    ForEachKind(i, tools, [&anyShows](StringView, const auto& row, auto&, auto&) {
      anyShows = anyShows || row.ShowSettings == 1;
    });
  }
  if (step == 1 && anyShows) {
    CustShowWinNotice.ToolPass = ToolPass;
    CustShowWinNotice.ShowModal();
  }
  // What the windows then hold is taken, whichever button was used.
  ForEachKind(step, tools, [](StringView, const auto& row, auto& chosen, auto& window) {
    if (row.ShowSettings != 1) return;
    window.ShowModal();
    chosen = SettingsIn(window);
  });
}

void CustomToolRunner::UseChosen(ToolState& tools, std::size_t step) {
  ForEachKind(step, tools, [](StringView, const auto& row, const auto& chosen, auto& window) {
    if (row.ShowSettings == 1) Put(chosen, window);
  });
}

void CustomToolRunner::RunStep(ToolContext& context, std::size_t step) {
  const String& name = tool_.StepNames[step];
  const Tool* tool = FindTool(name);
  if (tool == nullptr) return;
  bool asks = false;
  ForEachKind(step, context.Tools, [&](StringView stepName, const auto& row, auto&, auto&) {
    asks = asks || (name == stepName && row.ShowSettings == 1 && !context.Fields.BatchMode);
  });
  (asks ? tool->Click : tool->Run)(context);
}
