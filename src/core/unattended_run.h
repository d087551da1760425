#pragma once
// What the command line has the program do without a user: a custom tool on a file, or Email
// Cleanup on the clipboard.

#include <optional>

#include "text/text.h"

class ChangeCase;

// A command line that can't be carried out; `Title` is that of its message.
struct RefusedCommandLine {
  String Title;
  String Text;
};

// The run takes place on the terminal's side, without a window.
bool WantsNoWindow(StringView commandLine);

// Runs what the command line of the loaded program asks for, if anything, and returns the exit
// status. RefusedCommandLine; RuntimeError when a file can't be read or written.
std::optional<int> RunUnattended(ChangeCase& app);
