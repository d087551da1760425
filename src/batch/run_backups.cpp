#include "batch/run_backups.h"

#include <utility>

#include "batch/backup_name.h"
#include "batch/history.h"
#include "batch/left_states.h"
#include "platform/system/files.h"
#include "platform/system/folder_work.h"
#include "text/runtime_error.h"

RunBackups::RunBackups(const String& folder, const RunHead& head)
    : folder_(folder),
      history_(JoinPath(folder, kHistoryName)),
      left_(JoinPath(folder, kLeftStatesName)) {
  String lines;
  for (const String* line : {&head.Date, &head.Time, &head.Name}) lines.append(*line).append(kCrLf);
  history_.Append(ToUtf8(lines));
  history_.Flush();
  FlushFolder(folder_);
}

String RunBackups::UseFreeName(StringView bare, const MakeBackup& make) {
  int& number = nextNumbers_[String(bare)];
  for (;; ++number) {
    String name = NumberedName(number, bare);
    if (!make(JoinPath(folder_, name))) continue;
    ++number;
    return name;
  }
}

void RunBackups::Note(HistoryRecord record, String key) {
  records_ += FormatRecord(record);
  if (recorded_.insert(key).second) keys_.push_back(std::move(key));
}

void RunBackups::BackUp(const String& path, const MakeBackup& make) {
  const String full = FullPath(path);
  RequireRecordable(full, HistoryRecord::Kind::Backup);
  String key = ResolvedPath(full);
  const StringView bare = FileNameOf(full);
  String name;
  if (make) {
    name = UseFreeName(bare, make);
  } else {
    name = UseFreeName(bare, [&](const String& backup) { return CopyToNewName(full, backup); });
    backups_.push_back(name);
  }
  Note({HistoryRecord::Kind::Backup, full, name}, std::move(key));
}

void RunBackups::RecordTarget(const String& path, const MakeBackup& make) {
  if (IsRecorded(path)) return;
  if (StampOf(path)) return BackUp(path, make);
  String key = ResolvedPath(path);
  // What a link leads to is what will be made.
  const String made = KindOf(path) == EntryKind::Link ? key : FullPath(path);
  if (KindOf(made) != EntryKind::None)
    throw RuntimeError(kPathFileAccess, ToUtf8(path) + " is not a regular file");
  RequireRecordable(made, HistoryRecord::Kind::Removal);
  Note({HistoryRecord::Kind::Removal, made, {}}, std::move(key));
}

bool RunBackups::IsRecorded(const String& path) const {
  return recorded_.contains(ResolvedPath(path));
}

void RunBackups::Flush() {
  try {
    WriteLeft();
  } catch (const RuntimeError&) {
    // As with a state that could not be noted.
  }
  if (records_.empty()) return;
  try {
    for (const String& name : backups_) FlushContent(JoinPath(folder_, name));
    // Their names first, so that no record stands for a backup that is not there.
    if (!backups_.empty()) FlushFolder(folder_);
    history_.Append(records_);
    history_.Flush();
  } catch (...) {
    Forget();
    throw;
  }
  records_.clear();
  backups_.clear();
  keys_.clear();
}

void RunBackups::Forget() {
  for (const String& key : keys_) recorded_.erase(key);
  records_.clear();
  backups_.clear();
  keys_.clear();
}

void RunBackups::NoteLeft(const String& path) noexcept {
  try {
    leftLines_ += FormatLeftState(FullPath(path), StateOf(path));
  } catch (const std::exception&) {
    // Undo then keeps a copy of such a file and asks nothing.
  }
}

void RunBackups::WriteLeft() {
  const std::string lines = std::exchange(leftLines_, {});
  if (!lines.empty()) left_.Append(lines);
}

void RunBackups::Close() {
  WriteLeft();
  left_.Flush();
  left_.Close();
  history_.Close();
}
