#include "batch/undo_run.h"

#include <algorithm>
#include <unordered_map>

#include "batch/backup_name.h"
#include "batch/history.h"
#include "batch/left_states.h"
#include "batch/scratch_places.h"
#include "platform/system/byte_file.h"
#include "platform/system/files.h"
#include "platform/system/folder_work.h"
#include "platform/system/grouped_save.h"
#include "platform/system/safe_save.h"
#include "text/runtime_error.h"

namespace {

using Kind = enum HistoryRecord::Kind;

// What is done to one file, under whichever names it stands in the history.
struct Step {
  const HistoryRecord* First = nullptr;
  // Its path without detours, which may lead through folders that have gone.
  String Path;
  bool Selected = false;
  // What the run has left, if it has told.
  const LeftStates::Entry* Left = nullptr;
  // Nothing is to be done: the file is what it was before the run.
  bool Done = false;
  bool Changed = false;
  bool Keep = false;
};

String CauseOf(const std::exception& error) { return FromUtf8(error.what()); }

bool SameContent(const String& one, const String& other) {
  InputFile first(one), second(other);
  if (first.Size() != second.Size()) return false;
  constexpr std::size_t kBlock = 64 * 1024;
  std::string a(kBlock, '\0'), b(kBlock, '\0');
  const auto fill = [](InputFile& file, std::string& block) {
    std::size_t size = 0;
    while (const std::size_t got = file.Read(block.data() + size, kBlock - size)) size += got;
    return size;
  };
  for (;;) {
    const std::size_t size = fill(first, a);
    if (fill(second, b) != size || a.compare(0, size, b, 0, size) != 0) return false;
    if (size == 0) return true;
  }
}

class Undo {
 public:
  Undo(const String& folder, const UndoOrder& order)
      : folder_(folder),
        order_(order),
        history_(ReadHistory(folder, TokenCase::Any)),
        left_(ReadLeftStates(folder)) {}

  UndoOutcome Run() {
    outcome_.BadRecord = history_.BadLine;
    for (const HistoryRecord& record : history_.Records)
      if (record.Kind != Kind::Unclear) AddRecord(record);
    std::erase_if(steps_, [&](const Step& step) { return !IsWanted(step); });
    std::vector<String> changed;
    for (Step& step : steps_) {
      Try(step, [&] { Look(step); });
      if (step.Changed) changed.push_back(step.First->Path);
    }
    const ChangedFiles answer =
        changed.empty() || !order_.AskChanged ? ChangedFiles::Restore : order_.AskChanged(changed);
    outcome_.Stopped = answer == ChangedFiles::Stop;
    if (outcome_.Stopped) return outcome_;
    for (std::size_t done = 0; done < steps_.size(); ++done) {
      if (order_.Progress) order_.Progress(done, steps_.size());
      Step& step = steps_[done];
      if (step.Changed && answer == ChangedFiles::Leave)
        outcome_.Left.push_back(step.First->Path);
      else
        Try(step, [&] { Carry(step); });
      if (inGroup_.size() == kGroup) FinishGroup();
    }
    FinishGroup();
    if (steps_.size() > kFewFiles) Flush();
    return outcome_;
  }

 private:
  // The steps of all names of a file become one.
  void AddRecord(const HistoryRecord& record) {
    Step found;
    found.First = &record;
    found.Path = AbsolutePath(record.Path);
    found.Selected = order_.Selected && order_.Selected->contains(record.Path);
    if (const auto left = left_.ByPath.find(record.Path); left != left_.ByPath.end())
      found.Left = &left->second;
    const auto [place, isNew] = byKey_.try_emplace(KeyOf(found.Path), steps_.size());
    if (isNew) {
      steps_.push_back(found);
      return;
    }
    Step& step = steps_[place->second];
    step.Selected |= found.Selected;
    if (found.Left && (!step.Left || step.Left->Order < found.Left->Order)) step.Left = found.Left;
  }

  static String KeyOf(const String& path) {
    try {
      return FileKey(path);
    } catch (const RuntimeError&) {
      // What is wrong with it shows when it is restored.
      return path;
    }
  }

  bool IsWanted(const Step& step) const {
    return !order_.Selected || (step.Selected && step.First->Kind == Kind::Backup);
  }

  String BackupOf(const Step& step) const {
    const HistoryRecord& record = *step.First;
    if (!record.Path.starts_with(kPathSeparator))
      throw RuntimeError(kBadFileName, ToUtf8(record.Path) + ": not a full path");
    if (record.Kind == Kind::Removal) return {};
    if (!IsBackupName(record.BackupName))
      throw RuntimeError(kBadFileName, ToUtf8(record.Path) + ": its backup has no proper name, " +
                                           ToUtf8(record.BackupName));
    const String backup = JoinPath(folder_, record.BackupName);
    if (KindOf(backup) == EntryKind::Link)
      throw RuntimeError(kPathFileAccess, ToUtf8(backup) + " is a link");
    return backup;
  }

  // Finds out what there is to do.
  void Look(Step& step) {
    const String backup = BackupOf(step);
    const String& path = step.Path;
    const EntryKind kind = KindOf(path);
    if (kind == EntryKind::None || (kind == EntryKind::Link && !FileExists(path))) {
      // A backup has yet to come back; a file to remove has gone.
      step.Done = backup.empty() && kind == EntryKind::None;
      return;
    }
    step.Done = !backup.empty() && SameContent(path, backup);
    if (step.Done || !left_.Kept) return;
    step.Changed = step.Left && !IsAsLeft(path, step.Left->State);
    step.Keep = step.Changed || !step.Left;
  }

  void Carry(Step& step) {
    const String& path = step.Path;
    if (step.Done) return Count(step);
    if (step.Keep) KeepCopy(path);
    if (step.First->Kind == Kind::Removal) {
      DeleteFile(path);
    } else if (!StampOf(path)) {
      BringBack(BackupOf(step), path);
    } else if (steps_.size() > kFewFiles) {
      return AddToGroup(step);
    } else {
      const String backup = BackupOf(step);
      SafeSave(path, [&](const ByteSink& sink) { InputFile(backup).ReadRest(sink); });
      CarryTimes(backup, path);
    }
    Count(step);
  }

  void AddToGroup(Step& step) {
    const std::size_t number = group_.Add(step.Path);
    try {
      OutputFile content = group_.Content(number);
      InputFile(BackupOf(step)).ReadRest([&](std::string_view bytes) { content.Write(bytes); });
      content.Close();
    } catch (...) {
      group_.Drop(number);
      throw;
    }
    inGroup_.emplace_back(&step, number);
  }

  // False, and nothing of the group may be committed, when nobody knows what is on the disk.
  bool Flush() {
    try {
      group_.Flush();
      return true;
    } catch (const std::exception& error) {
      outcome_.Failures.push_back(CauseOf(error));
      return false;
    }
  }

  void FinishGroup() {
    const bool flushed = inGroup_.empty() || Flush();
    for (const auto& [step, number] : inGroup_) {
      if (flushed)
        Try(*step, [&, &file = *step, entry = number] {
          group_.Commit(entry);
          CarryTimes(BackupOf(file), file.Path);
          Count(file);
        });
      else
        Try(*step, [&, &file = *step, entry = number] {
          group_.Drop(entry);
          throw RuntimeError(kDeviceIoError, ToUtf8(file.Path) + ": not restored");
        });
    }
    inGroup_.clear();
  }

  void Count(const Step& step) {
    ++(step.First->Kind == Kind::Removal ? outcome_.Removed : outcome_.Restored);
  }

  // To where no file is.
  static void BringBack(const String& backup, const String& path) {
    const String target = ResolvedPath(path);
    constexpr unsigned kFolderMode = 0777;
    MakeFolders(FolderOf(target), kFolderMode);
    CopyOver(backup, target);
  }

  void KeepCopy(const String& path) const {
    const String bare = String(u"undone---").append(FileNameOf(path));
    for (int number = 0;; ++number) {
      const String copy = JoinPath(folder_, NumberedName(number, bare));
      if (!CopyToNewName(path, copy)) continue;
      FlushFile(copy);
      return;
    }
  }

  // A step that fails is reported and no longer worked on.
  template <class Action>
  void Try(Step& step, Action action) {
    if (failed_.contains(&step)) return;
    try {
      action();
    } catch (const std::exception& error) {
      failed_.insert(&step);
      outcome_.Failures.push_back(CauseOf(error));
    }
  }

  // So few are saved one by one, without a wait for all that other programs write.
  static constexpr std::size_t kFewFiles = 8;
  // Each has some files open.
  static constexpr std::size_t kGroup = 200;

  const String folder_;
  const UndoOrder& order_;
  const History history_;
  const LeftStates left_;
  std::vector<Step> steps_;
  std::unordered_map<String, std::size_t> byKey_;
  std::unordered_set<const Step*> failed_;
  ScratchPlaces places_{folder_};
  GroupedSave group_{[this](const String& folder) { places_.Note(folder); }};
  // Files whose old content waits to be put in place.
  std::vector<std::pair<Step*, std::size_t>> inGroup_;
  UndoOutcome outcome_;
};

}  // namespace

UndoOutcome UndoRun(const String& folder, const UndoOrder& order) {
  return Undo(folder, order).Run();
}

String FirstLines(const std::vector<String>& lines, std::size_t most) {
  String text;
  for (std::size_t i = 0; i < std::min(most, lines.size()); ++i)
    text.append(kCrLf).append(lines[i]);
  if (lines.size() > most)
    text += String(kCrLf) + u"and " + Str(static_cast<long long>(lines.size() - most)) + u" more";
  return text;
}

String UndoReport(const UndoOutcome& outcome, bool selectedOnly, std::size_t mostNamed) {
  String text;
  if (!outcome.Failures.empty()) {
    text.append(kRestoreFailed).append(FirstLines(outcome.Failures, mostNamed));
  } else if (outcome.BadRecord) {
    text = kBadBackupFile;
  } else if (!outcome.Left.empty()) {
    text =
        u"All other files have been restored to their original state prior to the Multiple File "
        u"Flurn.";
  } else if (selectedOnly) {
    text =
        u"The selected files have been restored to their original state prior to the Multiple "
        u"File Flurn.";
  } else {
    text = kAllRestored;
    if (outcome.Removed > 0)
      text +=
          u" In addition, 1 or more files that were originally created with this Multiple File "
          u"Flurn have been removed.";
  }
  if (!outcome.Left.empty())
    text.append(kCrLf)
        .append(u"Left as they are, because they were changed after the Multiple File Flurn:")
        .append(FirstLines(outcome.Left, mostNamed));
  return text;
}
