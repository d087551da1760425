#pragma once
// Files that saves of programs that were killed have left.

#include <vector>

#include "text/text.h"

// Goes through the scratch files in a folder whose names begin with one of the prefixes: removes
// those that are empty or hold what `file` holds, and adds the others to `left`. Files that a
// running program has locked, and other users' files, are passed over.
void SortLeftovers(const String& file, const String& folder, const std::vector<String>& prefixes,
                   std::vector<String>& left);

// Removes the scratch files in a folder whose names begin with a prefix, whatever they hold, but
// for those that a running program has locked, and other users'.
void RemoveScratch(const String& folder, const String& prefix);
