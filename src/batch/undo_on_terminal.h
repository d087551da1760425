#pragma once
// Undo of batch runs on the command line. Both return the exit status: 0 done; 1 refused, or files
// could not be restored; 2 files were left alone, because they were changed after the run.

#include <iosfwd>
#include <span>

#include "batch/batch_state.h"

// wordflurn --runs: a line for each run, newest first: its number, its label, and how many files it
// touched.
int ListRunsOnTerminal(const String& appFolder, const WhileLocked& whileLocked, std::ostream& out,
                       std::ostream& errors);

// wordflurn --undo N [FILE...] [--force]: restores run N of that list, wholly or only the files
// named. Files that were changed after the run are left alone and named unless --force stands
// there.
// arguments: what stands behind --undo.
int UndoOnTerminal(const String& appFolder, const WhileLocked& whileLocked,
                   std::span<const String> arguments, std::ostream& out, std::ostream& errors);
