#pragma once
// What the windows of a batch and the batch itself share.

#include <functional>
#include <vector>

#include "batch/backup_ring.h"
#include "platform/system/work_folder.h"

struct BatchState {
  // So many failed files are told with their causes; of more, the number.
  static constexpr std::size_t kMostErrorTexts = 5000;

  // The run that goes on or has ended last, and the label that a person knows it by.
  BatchRun Run;
  const String& BatchRunLabel() const { return Run.Label; }

  // An aborted run is being taken back: no questions, and no report but of a failure.
  bool AutoUndo = false;

  // The failed files as they stand in the list.
  std::vector<String> FailedFiles;
  std::size_t FailedFileCount() const { return FailedFiles.size(); }

  // Before a run.
  void ClearFailedFiles();
  // listRow: the file as it stands in the list. file: what was worked on, a new name perhaps.
  void NoteFailedFile(const String& listRow, const String& file, StringView cause);
  // A line for each failed file, ended by CR LF.
  String BatchErrorText() const;

 private:
  String errorText_;
};

// Runs an action under the lock of the data folder. RuntimeError 70, and nothing is run, while
// another program holds it.
using WhileLocked = std::function<void(const std::function<void()>& action)>;
// What a window and a terminal share of the data folder.
WhileLocked LockOf(const WorkFolder& folder);
