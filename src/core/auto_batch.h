#pragma once
// A Multiple File Flurn from the command line, and what a terminal asks of earlier ones.

#include <span>

#include "core/command_line.h"
#include "core/session.h"

// /MFF. Returns the exit status: 0 done; 1 aborted or not begun; 2 files failed, or cancelled, or
// nobody can know whether all is on the disk.
// RefusedCommandLine; RuntimeError where another program uses the data folder.
int RunBatch(Session& session, const JoinedLine& line);

// --runs, and --undo with what stands behind it.
int ListRuns();
int UndoFromTerminal(std::span<const String> arguments);
