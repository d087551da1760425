#pragma once
// A custom tool on a file, as /AUTO: has it.

#include "core/session.h"

// Runs the custom tool that the session's command line names on its file, saves the result and
// returns the exit status. What could not be done is told on standard error, with what was; the
// text from before is then kept beside a file that is overwritten. RefusedCommandLine; RuntimeError
// when a file can't be read or written.
int RunAuto(Session& session);
