#pragma once
// Where a run, or its undo, has new files in the making: so that what a kill has left of them goes
// at the next start.

#include <optional>
#include <unordered_set>

#include "platform/system/record_file.h"

class ScratchPlaces {
 public:
  // runFolder: of the backups. What can't be noted is passed over: it costs no file.
  explicit ScratchPlaces(const String& runFolder);
  // The work has come to its end, whichever.
  ~ScratchPlaces();

  // Before the first such file in a folder.
  void Note(const String& folder) noexcept;

 private:
  String path_;
  std::optional<RecordFile> file_;
  std::unordered_set<String> known_;
};

// Removes what the last work with this run has left. Under the lock of the data folder.
void RemoveScratchOf(const String& runFolder) noexcept;
