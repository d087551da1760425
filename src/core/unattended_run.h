#pragma once
// What the command line has the program do without a user: a custom tool on a file, many files at
// once, or Email Cleanup on the clipboard. Nothing here waits for a person.

#include "core/command_line.h"
#include "core/session.h"

// Runs the job of the session's command line, given as such, which is none in a window, and returns
// the exit status. RefusedCommandLine; RuntimeError when a file can't be read or written.
int RunUnattended(Session& session, const JoinedLine& given);
