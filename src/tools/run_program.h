#pragma once
// The tool that hands the text to another program and takes back what that leaves in the file.

#include "tools/tool_context.h"

// Runs the program with the path of a file that holds the text, and then its arguments. The text is
// read back when the program has ended with 0, or, on the editor, after 30 seconds in any case. On
// a file: RuntimeError 53 when the program can't be run (CheckingRunProgram of the run is then
// set), 250 after 20 seconds.
void RunProgram(ToolContext& context, const RunSettings& settings);
