#pragma once
// Changes the custom tool file. It holds either its old or its new content at every moment.
//
// `number` is 1 to `count`, the number of tools in the file. RuntimeError, and the file is as it
// was: also where a record that has to be found is not in it.

#include "custom/custom_tool.h"

// Adds a tool behind the `count` that are there, fewer than kMostCustomTools. A missing file is
// made.
void AppendCustomTool(const String& path, const CustomTool& tool, int count);
void ReplaceCustomTool(const String& path, const CustomTool& tool, int number, int count);
// The tools behind it move up by one. The file goes with the last tool.
void DeleteCustomTool(const String& path, int number, int count);
