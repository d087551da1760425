#pragma once
// A custom tool as lines of the custom tool file.

#include <vector>

#include "custom/custom_tool.h"

// The record of a tool under a number, 1 to kMostCustomTools. Only the settings of steps that have
// some are in it.
std::vector<String> RecordLines(const CustomTool& tool, int number);

// Reads the record of a tool out of all lines of the file into an object that may hold another
// tool: every value is emptied first, but for ShowSettings, which stays where the record has none.
// Where records contradict each other the last one holds. RuntimeError 62 when a record is cut off,
// 9 for settings of a step above kMostSteps or of step 0; the object is then half read.
void ReadRecord(const std::vector<String>& lines, int number, CustomTool& tool);

// "Tool1:" and so on.
String RecordKey(int number);
