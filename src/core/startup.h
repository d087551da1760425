#pragma once
// The program in a window, from its start to its end.

#include "platform/window/window_system.h"

// Returns the exit status. RuntimeError when the data folder can't be made or written.
int Main(WindowSystem& windows, const String& commandLine);
