#pragma once
// Search and Replace over the lines of a text.

#include <functional>

#include "tools/lines/line_replacer.h"
#include "tools/lines/lines.h"

// Tells of settings that can't be used, by the code of the error and the message for a person. It
// may throw to end the run.
using SettingsProblem = std::function<void(int code, StringView message)>;

// Runs the alternatives of the settings one after the other over all lines, counting the
// replacements anew. An alternative that can't be used is told of and passed over; an empty one
// makes all of them void. RuntimeError 9 for too many alternatives or returns, 6 for too many
// replacements: the lines are then half changed.
void ReplaceInLines(Lines& lines, const SearchSettings& settings, ReplaceState& state,
                    const SettingsProblem& tell);

// The same for settings that are in order and take a line at a time, in constant memory. False, and
// nothing was read, for others. RuntimeError 9 for more lines than the table holds, 6 as above.
bool ReplaceLineByLine(LineSource& in, LineSink& out, const SearchSettings& settings,
                       ReplaceState& state);
