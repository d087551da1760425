#pragma once
// The program from its start to its end, once it is known what it is to do.

#include "core/command_line.h"
#include "platform/window/window_system.h"

// Each returns the exit status. RuntimeError when the data folder can't be made or written.

// The main window, and in front of it, for a moment, the splash window.
int RunInWindow(WindowSystem& windows, const JoinedLine& line);
// The job that the command line has without a window. RuntimeError also as the job has it.
int RunWithoutWindow(WindowSystem& windows, const JoinedLine& line);
