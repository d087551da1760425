#include "batch/backup_ring.h"

#include <algorithm>

#include "batch/history.h"
#include "batch/scratch_places.h"
#include "platform/system/file_copy.h"
#include "platform/system/files.h"
#include "platform/system/folder_work.h"
#include "platform/system/record_file.h"
#include "text/runtime_error.h"

namespace {

constexpr unsigned kFolderMode = 0700;
constexpr int kPauseBehindRename = 150;
constexpr int kPauseBehindRemoval = 400;
// Where the oldest run waits for its end.
constexpr int kLeaving = 0;
constexpr int kNewest = BackupRing::kMostRuns;

constexpr StringView kProbeName = u"WFMFFNEW.DAT";
constexpr std::size_t kProbeSize = 4096;

void Pause(const RingHooks& hooks, int milliseconds) {
  if (hooks.Pause) hooks.Pause(milliseconds);
}

bool Cancelled(const RingHooks& hooks) { return hooks.Cancelled && hooks.Cancelled(); }

// An empty file can be made on a full disk, so that some bytes have to get there, too.
void TestWritable(const String& folder) {
  const String path = JoinPath(folder, kProbeName);
  DeleteFileQuietly(path);
  RecordFile probe(path);
  try {
    probe.Append(std::string(kProbeSize, ' '));
    probe.Flush();
    probe.Close();
  } catch (...) {
    DeleteFileQuietly(path);
    throw;
  }
  DeleteFile(path);
}

bool IsUnused(const String& folder) {
  const std::vector<String> names = EntriesIn(folder);
  return std::all_of(names.begin(), names.end(),
                     [](const String& name) { return name == kProbeName; });
}

}  // namespace

BackupRing::BackupRing(const String& appFolder) : root_(JoinPath(appFolder, u"MFF-Backups")) {}

String BackupRing::Folder(int number) const { return JoinPath(root_, Str(number)); }

bool BackupRing::HasFolder(int number) const { return KindOf(Folder(number)) == EntryKind::Folder; }

int BackupRing::LowestGap() const {
  for (int number = 1; number <= kMostRuns; ++number)
    if (!HasFolder(number)) return number;
  return 0;
}

int BackupRing::HighestGap() const {
  for (int number = kMostRuns; number >= 1; --number)
    if (!HasFolder(number)) return number;
  return 0;
}

void BackupRing::MakeRoot() const {
  if (FolderExists(root_)) return;
  MakeFolder(root_, kFolderMode);
  FlushFolder(FolderOf(root_));
}

void BackupRing::MakeRunFolder(int number) const {
  // One that a broken off rotation has made is there.
  if (!HasFolder(number)) MakeFolder(Folder(number), kFolderMode);
  FlushFolder(root_);
  try {
    TestWritable(Folder(number));
  } catch (const RuntimeError&) {
    // The next run looks for a gap again.
    if (IsUnused(Folder(number))) RemoveTree(Folder(number));
    throw;
  }
}

void BackupRing::FinishRotation(const RingHooks& hooks) {
  for (int number = kLeaving; number <= kNewest; ++number) RemoveScratchOf(Folder(number));
  if (!HasFolder(kLeaving)) return;
  const int gap = HighestGap();
  if (gap == 0) return;
  for (int number = gap + 1; number <= kMostRuns; ++number) {
    RenameEntry(Folder(number), Folder(number - 1));
    Pause(hooks, kPauseBehindRename);
  }
}

void BackupRing::RemoveOldest(const RingHooks& hooks) const {
  if (!HasFolder(kLeaving)) return;
  const bool empty = EntriesIn(Folder(kLeaving)).empty();
  RemoveTree(Folder(kLeaving));
  if (!empty) Pause(hooks, kPauseBehindRemoval);
}

std::optional<String> BackupRing::Prepare(const RingHooks& hooks) {
  MakeRoot();
  FinishRotation(hooks);
  int number = HasFolder(kLeaving) ? HighestGap() : LowestGap();
  const bool madeBefore = number == 0 && HasFolder(kLeaving) && IsUnused(Folder(kNewest));
  if (madeBefore) {
    number = kNewest;
  } else if (number == 0) {
    RemoveOldest(hooks);
    RenameEntry(Folder(1), Folder(kLeaving));
    FinishRotation(hooks);
    number = kNewest;
    if (Cancelled(hooks)) return {};
  }
  MakeRunFolder(number);
  RemoveOldest(hooks);
  if (Cancelled(hooks)) return {};
  return Folder(number);
}

std::vector<BatchRun> BackupRing::Runs() const {
  std::vector<BatchRun> runs;
  for (int number = 1; number <= kMostRuns; ++number) {
    try {
      if (!HasFolder(number)) continue;
      const String folder = Folder(number);
      RunHead head = ReadHistoryHead(folder).Head;
      String label = RunLabel(head);
      runs.push_back({number, folder, FileKey(folder), std::move(head), std::move(label)});
    } catch (const RuntimeError&) {
      // No run, or none that can be told.
    }
  }
  return runs;
}

std::optional<BatchRun> BackupRing::Find(const BatchRun& wanted) const {
  for (BatchRun& run : Runs())
    if (run.Key == wanted.Key && run.Label == wanted.Label) return std::move(run);
  return {};
}
