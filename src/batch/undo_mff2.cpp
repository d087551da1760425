#include "batch/undo_mff2.h"

#include <unordered_set>

#include "batch/history.h"
#include "batch/working2.h"
#include "platform/window/window_system.h"
#include "text/runtime_error.h"

namespace {

// The name of the run on a line of its own.
String InTwoLines(String label) {
  if (const std::size_t name = label.find(u'('); name != String::npos) label.insert(name, kCrLf);
  return label;
}

}  // namespace

UndoMFF2::UndoMFF2(WindowSystem& windows, Messages& messages, BackupRing& ring, BatchState& state,
                   UndoMFF& runs, WhileLocked whileLocked)
    : Form(windows),
      messages_(messages),
      ring_(ring),
      state_(state),
      runs_(runs),
      whileLocked_(std::move(whileLocked)) {
  Caption = u"Undo Multiple File Flurn";
  Label1.Caption = u"Undo Multiple File Flurn";
  Label1.Heading = true;
  Label3.Caption =
      u"The following files were changed with this Multiple File Flurn.  You can either choose to "
      u"undo the Multiple File Flurn on all of the files or only on selected files.";
  Label3.WordWrap = true;
  List1.Style = ListBox::Marks::CheckBoxes;
  Option1.Caption = u"Undo All Files";
  Option2.Caption = u"Undo Selected Files";
  Command1.Caption = u"&OK";
  Command1.Default = true;
  Command1.OnClick = [this] { UndoFiles(); };
  Command2.Caption = u"C&ancel";
  Command2.Cancel = true;
  Command2.OnClick = [this] {
    runs_.Unload();
    Unload();
  };
  List1.ItemChecked = [this](int) { FollowTicks(); };
  Columns = 70;
}

Layout UndoMFF2::Content() {
  return Column({Label1, Label3, Label4, List1, Group(u"", {Row({Option1, Option2, Stretch()})}),
                 Row({Label5, Stretch(), Command1, Command2})});
}

void UndoMFF2::Load() {
  Report.clear();
  Label4.Caption = InTwoLines(runs_.Text1.Text);
  Label5.Caption = String();
  List1.Clear();
  List1.Selected = std::set<int>{};
  Option1.Value = true;
  Option2.Value = false;
  try {
    ListFiles();
  } catch (const std::exception&) {
    messages_.Notice(u"An error was encountered while trying to access the backup files.");
  }
  if (state_.AutoUndo) UndoFiles();
}

void UndoMFF2::ListFiles() {
  const auto chosen = runs_.Chosen();
  const auto run = chosen ? ring_.Find(*chosen) : std::nullopt;
  if (!run) throw RuntimeError(kPathNotFound, "The run has gone");
  const History history = ReadHistory(run->Folder, TokenCase::AsItStands);
  NoNameLine = history.NoNameLine;
  std::vector<String> paths;
  std::unordered_set<StringView> listed;
  for (const HistoryRecord& record : history.Records)
    if (record.Kind == HistoryRecord::Kind::Backup && listed.insert(record.Path).second)
      paths.push_back(record.Path);
  List1.List = std::move(paths);
  if (history.BadLine) messages_.Notice(kBadBackupFile);
}

void UndoMFF2::FollowTicks() {
  const bool any = !List1.Selected.Get().empty();
  Option1.Value = !any;
  Option2.Value = any;
}

void UndoMFF2::SelectFailedFiles() {
  const std::unordered_set<StringView> failed(state_.FailedFiles.begin(), state_.FailedFiles.end());
  std::set<int> rows;
  const std::vector<String>& paths = List1.List;
  for (std::size_t row = 0; row < paths.size(); ++row)
    if (failed.contains(paths[row])) rows.insert(static_cast<int>(row));
  List1.Selected = std::move(rows);
}

bool UndoMFF2::IsSure() {
  if (Option2.Value && List1.Selected.Get().empty()) {
    messages_.Notice(
        u"Error: You specified to only undo selected files but you did not select any. To select a "
        u"file, click on the box next to it.");
    return false;
  }
  return messages_.Ask(Option2.Value
                           ? u"Are you sure you want to restore these selected files to their "
                             u"pre-flurn state?"
                           : u"Are you sure you want to restore all of these files to their "
                             u"pre-flurn state?") == Answer::Yes;
}

ChangedFiles UndoMFF2::AskChanged(const BatchRun& run, const std::vector<String>& paths) {
  const String question = u"These files were changed after the Multiple File Flurn:" +
                          FirstLines(paths) + String(kCrLf) + String(kCrLf) +
                          u"Do you want to restore them, too? What they hold now will be kept in " +
                          run.Folder + u" under names that begin with undone---.";
  switch (messages_.Ask(question)) {
    case Answer::Yes:
      return ChangedFiles::Restore;
    case Answer::No:
      return ChangedFiles::Leave;
    case Answer::Cancel:
      break;
  }
  return ChangedFiles::Stop;
}

UndoOrder UndoMFF2::Order() {
  UndoOrder order;
  if (Option2.Value) {
    order.Selected.emplace();
    for (const int row : List1.Selected.Get())
      order.Selected->insert(List1.List.Get().at(static_cast<std::size_t>(row)));
  }
  order.Progress = [this, next = Windows().Milliseconds()](std::size_t done,
                                                           std::size_t of) mutable {
    // Showing it takes longer than restoring a file.
    constexpr int kStepMilliseconds = 50;
    if (Windows().Milliseconds() < next) return;
    next = Windows().Milliseconds() + kStepMilliseconds;
    Label5.Caption = u"Restoring " + FileOf(done + 1, of);
    Windows().DoEvents();
  };
  return order;
}

UndoOutcome UndoMFF2::Restore() {
  const auto chosen = runs_.Chosen();
  UndoOutcome outcome;
  whileLocked_([&] {
    // Another run may have moved it since it was listed.
    const auto run = chosen ? ring_.Find(*chosen) : std::nullopt;
    if (!run) throw RuntimeError(kPathNotFound, "The run has gone");
    UndoOrder order = Order();
    if (!state_.AutoUndo)
      order.AskChanged = [&](const auto& paths) { return AskChanged(*run, paths); };
    outcome = UndoRun(run->Folder, order);
  });
  return outcome;
}

void UndoMFF2::Enable(bool enabled) {
  for (Control* control :
       std::initializer_list<Control*>{&List1, &Option1, &Option2, &Command1, &Command2})
    control->Enabled = enabled;
  Busy = !enabled;
  if (enabled) Label5.Caption = String();
}

void UndoMFF2::UndoFiles() {
  if (!state_.AutoUndo && !IsSure()) return;
  Enable(false);
  UndoOutcome outcome;
  try {
    outcome = Restore();
  } catch (const std::exception& error) {
    outcome.Failures.push_back(FromUtf8(error.what()));
  }
  Enable(true);
  if (outcome.Stopped) return;
  Report = UndoReport(outcome, Option2.Value);
  if (!state_.AutoUndo || !outcome.Failures.empty() || outcome.BadRecord) messages_.Notice(Report);
  runs_.Unload();
  if (!state_.AutoUndo) Unload();
}
