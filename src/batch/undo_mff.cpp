#include "batch/undo_mff.h"

#include <algorithm>

#include "editor/help_topics.h"
#include "text/runtime_error.h"

UndoMFF::UndoMFF(WindowSystem& windows, Messages& messages, BackupRing& ring,
                 WhileLocked whileLocked)
    : Form(windows), messages_(messages), ring_(ring), whileLocked_(std::move(whileLocked)) {
  Caption = u"Undo Multiple File Flurn";
  Label1.Caption = u"Undo Multiple File Flurn";
  Label1.Heading = true;
  Label2.Caption = u"Select which of the previous 10 Multiple File Flurn operations to undo:";
  Label2.WordWrap = true;
  Label3.Caption = u"Selected:";
  Text1.Locked = true;
  Command1.Caption = u"&OK";
  Command1.Default = true;
  Command1.OnClick = [this] {
    Hide();
    if (OnChosen) OnChosen();
  };
  Command2.Caption = u"C&ancel";
  Command2.Cancel = true;
  Command2.OnClick = [this] { Unload(); };
  Command3.Caption = u"Help!";
  Command3.OnClick = [this] { messages_.Help(kHelpBatchUndo); };
  List1.OnClick = [this] {
    if (const auto run = Chosen()) Text1.Text = run->Label;
    Text1.SelStart = 0;
  };
  List1.OnDblClick = [this] { Command1.Click(); };
  Columns = 70;
}

Layout UndoMFF::Content() {
  return Column({Label1, Label2, List1, Row({Label3, Text1}),
                 Row({Stretch(), Command1, Command2, Command3, Stretch()})});
}

void UndoMFF::Load() {
  try {
    whileLocked_([this] { ring_.FinishRotation(); });
  } catch (const RuntimeError&) {
    // Another program rotates just now, or the folders can't be moved: what is there is listed.
  }
  runs_ = ring_.Runs();
  std::vector<String> labels, folders;
  for (const BatchRun& run : runs_) folders.push_back(Str(run.Number));
  std::reverse(runs_.begin(), runs_.end());
  for (const BatchRun& run : runs_) labels.push_back(run.Label);
  Text1.Text = String();
  List1.ListIndex = -1;
  List1.List = std::move(labels);
  List2.List = std::move(folders);
  NothingToUndo = runs_.empty();
  if (NothingToUndo)
    messages_.Notice(u"No Multiple File Flurn operations found.");
  else
    List1.ListIndex = 0;
}

std::optional<BatchRun> UndoMFF::Chosen() const {
  const int row = List1.ListIndex;
  if (row < 0 || row >= static_cast<int>(runs_.size())) return {};
  return runs_[static_cast<std::size_t>(row)];
}

bool UndoMFF::Choose(const BatchRun& wanted) {
  Unload();
  LoadOnce();
  for (std::size_t row = 0; row < runs_.size(); ++row) {
    if (runs_[row].Key != wanted.Key || runs_[row].Label != wanted.Label) continue;
    List1.ListIndex = static_cast<int>(row);
    return true;
  }
  Unload();
  return false;
}
