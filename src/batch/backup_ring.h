#pragma once
// The ring of backup folders, MFF-Backups/1 to 10 in the data folder, one for each of the last
// runs. The highest number is the newest run.
//
// When all ten are there, a new run moves each down by one, the oldest to the name "0"; the new
// folder gets number 10, and only when it can be written the oldest goes. So a rotation that was
// broken off shows by a folder "0", and can be finished from wherever it stopped.
//
// A folder of the ring that is a link is none: nothing behind it is ever written or removed. The
// ring itself may be a link to a folder elsewhere. Whoever rotates or finishes holds the lock of
// the data folder.

#include <functional>
#include <optional>
#include <vector>

#include "batch/run_head.h"

// Told to the user when Prepare fails.
inline constexpr StringView kRingFailed =
    u"An error was encountered while trying to manipulate the backup folders to prepare for file "
    u"backup.  Multiple File Flurn cannot continue and will now end.";

// What a window does in a rotation; nothing where there is none.
struct RingHooks {
  // Waits with a running event loop.
  std::function<void(int milliseconds)> Pause;
  // Whether the user has clicked Cancel.
  std::function<bool()> Cancelled;
};

struct BatchRun {
  // Its place in the ring, 1 to 10; a later run may change it.
  int Number = 0;
  String Folder;
  // The same for this folder under any number.
  String Key;
  RunHead Head;
  String Label;
};

class BackupRing {
 public:
  static constexpr int kMostRuns = 10;

  explicit BackupRing(const String& appFolder);

  // The folder of a new run, empty, with mode 0700; none when the user has cancelled. RuntimeError
  // with the cause; the run then ends with the message above.
  std::optional<String> Prepare(const RingHooks& hooks = {});
  // Moves what a rotation that was broken off has not moved yet.
  void FinishRotation(const RingHooks& hooks = {});

  // The runs whose history has a head, oldest first.
  std::vector<BatchRun> Runs() const;
  // Where a run is now: the same folder with the same label.
  std::optional<BatchRun> Find(const BatchRun& run) const;

 private:
  String Folder(int number) const;
  bool HasFolder(int number) const;
  // 0 where there is none.
  int LowestGap() const;
  int HighestGap() const;
  void MakeRoot() const;
  void MakeRunFolder(int number) const;
  void RemoveOldest(const RingHooks& hooks) const;

  String root_;
};
