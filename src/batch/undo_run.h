#pragma once
// Brings back what a run has changed, without any window. Whoever calls holds the lock of the data
// folder.

#include <functional>
#include <optional>
#include <unordered_set>
#include <vector>

#include "text/text.h"

// About files that were changed after the run.
enum class ChangedFiles {
  Restore,  // bring them back, too; what they hold is kept in the run's folder
  Leave,
  Stop,  // undo nothing at all
};

struct UndoOrder {
  // Paths of the history whose files are restored; files that the run made then stay. None: all of
  // the run.
  std::optional<std::unordered_set<String>> Selected;
  // Called once, before anything is written, when there are such files. None: Restore.
  std::function<ChangedFiles(const std::vector<String>& paths)> AskChanged;
  // Called between files.
  std::function<void(std::size_t done, std::size_t of)> Progress;
};

struct UndoOutcome {
  bool Stopped = false;
  // A line of the history was no record; what stands in front of it was worked on.
  bool BadRecord = false;
  std::size_t Restored = 0;
  std::size_t Removed = 0;
  // "PATH: cause" of each file that is not what it was before the run.
  std::vector<String> Failures;
  // Files that were changed after the run and left alone.
  std::vector<String> Left;
};

// The run whose folder this is. The first record of a file counts, under whichever of its names,
// so each gets its content from before the run, and what the run made is gone. Goes on after a
// file that can't be restored. A file that has its old content already stays untouched. Files that
// were changed after the run, or whose state after it was not kept because the run was ended by
// force, are copied to undone---NAME in the run's folder before they are replaced or deleted.
//
// RuntimeError when the history can't be read.
UndoOutcome UndoRun(const String& folder, const UndoOrder& order);

// So many files are named to a person.
inline constexpr std::size_t kMostNamed = 10;
// The one message about an undo.
String UndoReport(const UndoOutcome& outcome, bool selectedOnly,
                  std::size_t mostNamed = kMostNamed);
// The first lines, each behind CR LF, and how many more there are.
String FirstLines(const std::vector<String>& lines, std::size_t most = kMostNamed);

inline constexpr StringView kBadBackupFile = u"Error with backup file encountered.";
inline constexpr StringView kRestoreFailed =
    u"An error was encountered while trying to restore the files.";
inline constexpr StringView kAllRestored =
    u"All files have been restored to their original state prior to the Multiple File Flurn.";
