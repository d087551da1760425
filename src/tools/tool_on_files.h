#pragma once
// One tool over files, without a window.

#include <span>

#include "text/text.h"

// Runs the tool of this stored name on each file and writes the result over it. What fails is told
// on standard error, and the next file goes on. Returns the exit status: 0 all done, 1 unknown tool
// or no work folder, 2 some files failed.
int RunToolOnFiles(const String& toolName, std::span<const String> files);
