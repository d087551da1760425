#pragma once
// The tool that hands the text to another program and takes back what that leaves in the file.

#include "tools/tool_context.h"

// Runs `program` with the path of a file that holds the text, and then `arguments`, which come back
// trimmed, with a blank in front unless nothing is left. The text is read back when the program has
// ended with 0, or, on the editor, after 30 seconds in any case. On a file: RuntimeError 53 when
// the program can't be run (CheckingRunProgram is then set), 250 after 20 seconds.
void RunProgram(ToolContext& context, const String& program, String& arguments);

// With what RunProgramSettings holds.
void RunProgramAsSet(ToolContext& context);
