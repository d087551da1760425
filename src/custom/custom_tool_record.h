#pragma once
// A custom tool as lines of the custom tool file.

#include <vector>

#include "custom/custom_tool.h"

// The record of a tool under a number, 1 to kMostCustomTools. Only the settings of steps that have
// some are in it.
std::vector<String> RecordLines(const CustomTool& tool, int number);

// Reads the record of a tool out of all lines of the file; a tool that is not there has no steps.
// Where records contradict each other the last one holds. RuntimeError 62 when a record is cut off,
// 9 for settings of a step above kMostSteps.
CustomTool ReadRecord(const std::vector<String>& lines, int number);

// The same out of the custom tool file. RuntimeError names the file and the tool.
CustomTool ReadCustomTool(const String& path, int number);

// "Tool1:" and so on.
String RecordKey(int number);
