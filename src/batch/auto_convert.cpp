#include "batch/auto_convert.h"

#include <ctime>
#include <unordered_map>

#include "batch/batch_passes.h"
#include "batch/failure_text.h"
#include "batch/run_backups.h"
#include "batch/scratch_places.h"
#include "platform/system/file_copy.h"
#include "platform/system/files.h"
#include "platform/system/grouped_save.h"
#include "text/runtime_error.h"

namespace {

constexpr int kPauseBehindFile = 1000;
constexpr int kPauseBehindFailure = 4000;

// Files that share a wait for the disk: not so many that Cancel would wait long, nor that too many
// files are open.
constexpr std::size_t kMostInGroup = 200;
constexpr std::uint64_t kMostBytesInGroup = 64 * 1024 * 1024;

// What has become of a file of the list, on its way to the disk.
struct Pending {
  struct Target {
    String Path;
    std::size_t Number;  // in the group
  };

  std::size_t Row = 0;
  String File;
  // Of the file: behind all links, and the same for all of its names.
  String Resolved;
  String Key;
  std::vector<Target> Targets;
  std::optional<BatchFailure> Failure;
  // It has a record in the history.
  bool IsBackedUp = false;
};

class BatchRunner {
 public:
  BatchRunner(BatchTools& tools, const BatchOrder& order, BatchProgress& progress)
      : tools_(tools),
        windows_(tools.Windows),
        state_(tools.Windows.State),
        order_(order),
        progress_(progress),
        passes_(tools.Context, tools.CustomTools, order, tools.CustomToolNames) {}

  BatchEnd Run();

 private:
  // Where the run ends before its first file.
  std::optional<BatchEnd> Prepare();
  BatchEnd Work();
  BatchEnd EndOf(bool cancelled);
  BatchEnd CancelledBeforeAnyFile();
  void Tell(StringView notice);

  Pending Identify(std::size_t row) const;
  void Begin(Pending& file);
  // That no other file of the list has written this path; source: the file that is worked on. Both
  // behind all links.
  void TestNotWritten(const String& path, const String& resolved, const String& source) const;
  void Stage(Pending& file, std::vector<BatchResult>& results);
  void StageTarget(Pending& file, BatchResult& result);
  void Drop(Pending& file);
  // True when the run ends here.
  bool FinishGroup();
  bool Finish(Pending& file);
  void Commit(Pending& file);
  void Report(const Pending& file);
  BatchEnd Abort(const Pending& file);

  bool GroupIsFull() const {
    return group_.size() >= (order_.SuperFast ? kMostInGroup : 1) ||
           groupBytes_ > kMostBytesInGroup;
  }

  BatchTools& tools_;
  BatchWindows& windows_;
  BatchState& state_;
  const BatchOrder& order_;
  BatchProgress& progress_;
  BatchPasses passes_;

  std::optional<RunBackups> backups_;
  std::optional<ScratchPlaces> places_;
  GroupedSave save_{[this](const String& folder) { places_->Note(folder); }};
  std::vector<Pending> group_;
  std::uint64_t groupBytes_ = 0;
  // Of the files in the group.
  std::unordered_set<String> groupKeys_;
  // What the run writes, and the file of the list that it comes from, behind all links.
  std::unordered_map<String, String> written_;
  // What it has made under a prefix or in a location, which stays there.
  std::unordered_set<String> unrecorded_;
  bool cancelled_ = false;
};

void BatchRunner::Tell(StringView notice) {
  progress_.GiveWay();
  tools_.Context.Messages.Notice(notice);
}

BatchEnd BatchRunner::CancelledBeforeAnyFile() {
  Tell(u"Canceled before any files were flurned.");
  return BatchEnd::Cancelled;
}

// The backup folder and the head of the history.
std::optional<BatchEnd> BatchRunner::Prepare() {
  progress_.Status(u"Backing up files.");
  if (progress_.Cancelled()) return CancelledBeforeAnyFile();
  try {
    const RunHead head = MakeRunHead(std::time(nullptr), order_.Name);
    const auto folder =
        windows_.Ring.Prepare({.Pause = [this](int milliseconds) { progress_.Pause(milliseconds); },
                               .Cancelled = [this] { return progress_.Cancelled(); }});
    if (!folder) return CancelledBeforeAnyFile();
    backups_.emplace(*folder, head);
    places_.emplace(*folder);
    state_.Run = {0, *folder, FileKey(*folder), head, RunLabel(head)};
    return {};
  } catch (const RuntimeError& error) {
    String text(kRingFailed);
    text.append(kCrLf).append(kCrLf).append(FromUtf8(error.what()));
    Tell(text);
    return BatchEnd::NotBegun;
  }
}

BatchEnd BatchRunner::Run() {
  state_.AutoUndo = false;
  state_.ClearFailedFiles();
  windows_.ASCIIWarn.BeginRun();
  progress_.Begin();
  if (const auto end = Prepare()) return progress_.End(), *end;
  return Work();
}

BatchEnd BatchRunner::Work() {
  for (std::size_t row = 0; row < order_.Files.size(); ++row) {
    Pending file = Identify(row);
    if (groupKeys_.contains(file.Key)) {
      // The file, or one that it would write, waits in the group, and is another one afterwards.
      if (FinishGroup()) return EndOf(true);
      file = Identify(row);
    }
    progress_.File(row + 1, order_.Files.size());
    Begin(file);
    if (file.Failure && file.Failure->Aborts()) return Abort(file);
    group_.push_back(std::move(file));
    if (GroupIsFull() && FinishGroup()) return EndOf(true);
  }
  return EndOf(FinishGroup());
}

BatchEnd BatchRunner::EndOf(bool cancelled) {
  BatchEnd end = cancelled ? BatchEnd::Cancelled : BatchEnd::Done;
  try {
    // The names of the last group.
    save_.Flush();
    backups_->Close();
  } catch (const std::exception& error) {
    if (!cancelled) end = BatchEnd::Unsure;
    Tell(FromUtf8(error.what()));
  }
  progress_.End();
  if (cancelled) windows_.MFFCancel.ShowModal();
  if (state_.FailedFileCount() > 0) windows_.MultiErrors.ShowModal();
  return end;
}

Pending BatchRunner::Identify(std::size_t row) const {
  Pending file;
  file.Row = row;
  file.File = order_.Files[row];
  try {
    file.Resolved = ResolvedPath(file.File);
    file.Key = FileKey(file.File);
  } catch (const std::exception& error) {
    file.Failure = FailureOf(error, file.File, false);
  }
  return file;
}

// Runs the passes on a file and stages what they have made. Nothing of it is written yet.
void BatchRunner::Begin(Pending& file) {
  if (file.Failure) return;
  std::vector<BatchResult> results;
  std::optional<FileStamp> before;
  const auto fail = [&](const std::exception& error) {
    if (file.Failure) return;
    file.Failure = FailureOf(error, passes_.Source(), passes_.CheckingRunProgram());
  };
  try {
    progress_.Status(u"Working on file: " + passes_.FirstTarget(file.File));
    passes_.Test(file.File, file.Resolved);
    TestNotWritten(file.File, file.Resolved, file.Resolved);
    before = StampOf(file.File);
    passes_.AskAboutText(file.File, windows_.ASCIIWarn);
    passes_.Run(file.File, results);
  } catch (const std::exception& error) {
    fail(error);
  }
  try {
    if (before && StampOf(file.File) != before) {
      results.clear();
      if (!file.Failure)
        throw RuntimeError(kPathFileAccess,
                           ToUtf8(file.File) + ": another program has changed the file meanwhile");
    }
    if (before) Stage(file, results);
  } catch (const std::exception& error) {
    Drop(file);
    fail(error);
  }
}

void BatchRunner::TestNotWritten(const String& path, const String& resolved,
                                 const String& source) const {
  const auto writer = written_.find(resolved);
  if (writer != written_.end() && writer->second != source)
    throw RuntimeError(kPathFileAccess,
                       "The name " + ToUtf8(path) + " is already written by this run.");
}

void BatchRunner::Stage(Pending& file, std::vector<BatchResult>& results) {
  groupKeys_.insert(file.Key);
  // All of them before any is written.
  std::vector<String> resolved;
  for (const BatchResult& result : results) {
    resolved.push_back(result.Path == file.File ? file.Resolved : ResolvedPath(result.Path));
    TestNotWritten(result.Path, resolved.back(), file.Resolved);
  }
  for (String& path : resolved) written_.emplace(std::move(path), file.Resolved);
  // The file's own record comes first.
  std::stable_partition(results.begin(), results.end(),
                        [&](const BatchResult& result) { return result.Path == file.File; });
  if (results.empty() || results.front().Path != file.File) {
    backups_->BackUp(file.File);
    file.IsBackedUp = true;
  }
  for (BatchResult& result : results) StageTarget(file, result);
}

void BatchRunner::StageTarget(Pending& file, BatchResult& result) {
  if (result.Path != file.File) groupKeys_.insert(FileKey(result.Path));
  groupBytes_ += result.Content.Size();
  const std::size_t number = save_.Add(result.Path, file.File);
  file.Targets.push_back({result.Path, number});
  OutputFile content = save_.Content(number);
  result.Content.ReadRest([&content](std::string_view bytes) { content.Write(bytes); });
  content.Close();
  const auto backUp = [&](const String& backup) { return save_.BackUp(number, backup); };
  if (result.Path == file.File) {
    backups_->BackUp(result.Path, backUp);
    file.IsBackedUp = true;
  } else if (const String resolved = ResolvedPath(result.Path); !unrecorded_.contains(resolved)) {
    if (result.Renamed || StampOf(resolved))
      backups_->RecordTarget(result.Path, backUp);
    else
      unrecorded_.insert(resolved);
  }
}

void BatchRunner::Drop(Pending& file) {
  for (const Pending::Target& target : file.Targets) {
    try {
      save_.Drop(target.Number);
    } catch (const std::exception&) {
      // The target is as it was; only its backup could not be parted from it.
    }
  }
  file.Targets.clear();
}

bool BatchRunner::FinishGroup() {
  try {
    save_.Flush();
    backups_->Flush();
  } catch (const std::exception& error) {
    // No backup and record that is known to be on the disk: no change.
    backups_->Forget();
    for (Pending& file : group_) {
      Drop(file);
      if (!file.Failure) file.Failure = FailureOf(error, file.File, false);
    }
  }
  for (Pending& file : group_) {
    if (cancelled_) {
      Drop(file);
      if (file.IsBackedUp) backups_->NoteLeft(file.File);
    } else {
      cancelled_ = Finish(file);
    }
  }
  group_.clear();
  groupKeys_.clear();
  groupBytes_ = 0;
  return cancelled_;
}

bool BatchRunner::Finish(Pending& file) {
  Commit(file);
  int pause = order_.SuperFast ? 0 : kPauseBehindFile;
  if (file.Failure) {
    Report(file);
    pause = kPauseBehindFailure;
  }
  if (!progress_.Pause(pause) && !progress_.Cancelled()) return false;
  const String last = file.Targets.empty() ? file.File : file.Targets.back().Path;
  windows_.MFFCancel.NoticeMessage = u"Canceled at " + last +
                                     u". All files up to and including this file have already been "
                                     u"flurned. Any remaining files will not be flurned.";
  return true;
}

void BatchRunner::Commit(Pending& file) {
  for (std::size_t i = 0; i < file.Targets.size(); ++i) {
    try {
      save_.Commit(file.Targets[i].Number);
    } catch (const std::exception& error) {
      if (!file.Failure) file.Failure = FailureOf(error, file.File, false);
    }
    backups_->NoteLeft(file.Targets[i].Path);
  }
  if (file.Targets.empty() || file.Targets.front().Path != file.File)
    if (file.IsBackedUp) backups_->NoteLeft(file.File);
}

void BatchRunner::Report(const Pending& file) {
  progress_.Status(file.Failure->StatusText);
  state_.NoteFailedFile(order_.Files[file.Row], file.Failure->File, file.Failure->LogText);
}

BatchEnd BatchRunner::Abort(const Pending& failed) {
  for (Pending& file : group_) Drop(file);
  group_.clear();
  try {
    // What was written so far has its records; those of the group do no harm.
    save_.Flush();
    backups_->Flush();
    backups_->Close();
  } catch (const std::exception&) {
    // The undo tells what it can't bring back.
  }
  Report(failed);
  progress_.End();
  tools_.Context.Messages.Notice(failed.Failure->AbortText);
  windows_.UndoAbortedRun();
  return BatchEnd::Aborted;
}

}  // namespace

BatchEnd AUTOConvert(BatchTools& tools, const BatchOrder& order, BatchProgress& progress) {
  const DataLock lock = tools.WorkFolder.Lock();
  return BatchRunner(tools, order, progress).Run();
}
