#pragma once
// The files that a batch finds in a folder and those inside it.

#include <functional>
#include <vector>

#include "text/text.h"

struct FoundFiles {
  // In natural order, those of a folder before those of the folders inside it.
  std::vector<String> Files;
  // Folders that can't be read.
  std::size_t Unreadable = 0;
};

// Adds the files that fit the pattern. Links to folders are not followed; hidden folders are
// entered for kEveryFile alone. goesOn is told between folders how many files there are so far, and
// ends the search; false then.
bool FindFiles(const String& folder, StringView pattern, FoundFiles& found,
               const std::function<bool(std::size_t count)>& goesOn);
