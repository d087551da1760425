#pragma once
// The backups and the history of a run that goes on: each path is recorded before its first write.
//
// For one file: BackUp, RecordTarget for each other name, Flush, then write. For a group of files:
// BackUp and RecordTarget for all of them, one Flush, then write. What was not followed by a Flush
// that succeeded must not be written.
//
// A grouped save makes the backups itself: then BackUp and RecordTarget are given its way of making
// one, and its own flush comes before this Flush.

#include <functional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "batch/history_record.h"
#include "batch/run_head.h"
#include "platform/system/record_file.h"

class RunBackups {
 public:
  // Makes a backup of the file in question under this new name, which the caller puts on the disk
  // before Flush. False when something stands there already.
  using MakeBackup = std::function<bool(const String& backup)>;

  // Begins the history of a run in its new folder; it is on the disk when this returns.
  // RuntimeError; nothing may be changed then.
  RunBackups(const String& folder, const RunHead& head);

  // Copies a file of the list into the run's folder, each time under a new name, and notes the
  // record for the next Flush. RuntimeError, and no record: the file must not be changed.
  void BackUp(const String& path, const MakeBackup& make = {});
  // For a path that is written beside the file of the list: a backup where a file is, a removal
  // where none is. Once a run; a path that was backed up is recorded already.
  void RecordTarget(const String& path, const MakeBackup& make = {});
  // Whether a record of this path stands in the history or waits for the next Flush.
  bool IsRecorded(const String& path) const;
  // Returns when the backups and records noted so far are on the disk. RuntimeError, and none of
  // the files noted since the last Flush is recorded: they must not be changed.
  void Flush();
  // Forgets what was noted since the last Flush, where it is not known whether the backups that
  // others made are on the disk. None of those files may be changed.
  void Forget();

  // Tells that the run is done with a path, whether it has written it or not, so that undo knows
  // what the run has left. Not told of, a file counts as written by the run alone. Never fails.
  void NoteLeft(const String& path) noexcept;
  // The end of the run. RuntimeError for what only shows now.
  void Close();

  const String& Folder() const { return folder_; }

 private:
  // Makes a backup under the first free name: NAME, 1---NAME, 2---NAME and so on.
  String UseFreeName(StringView bare, const MakeBackup& make);
  void Note(HistoryRecord record, String key);
  void WriteLeft();

  String folder_;
  RecordFile history_;
  RecordFile left_;
  // The next number for a name that is taken.
  std::unordered_map<String, int> nextNumbers_;
  std::unordered_set<String> recorded_;
  // Since the last Flush.
  std::string records_;
  std::vector<String> backups_;
  std::vector<String> keys_;
  std::string leftLines_;
};
