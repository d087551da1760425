#pragma once
// The tools of the Line Spacing menu. A blank line holds nothing but spaces.

#include "tools/tool_context.h"

// One empty line in front of every line that is not blank, in place of the blank lines there were.
void AddDoubleSpc(ToolContext& context);
// Takes all blank lines away.
void RemoveDoubleSpc(ToolContext& context);
// Takes the blank lines at the beginning and at the end of the text away.
void RemoveBlankLines(ToolContext& context);
// One empty line in front of each line that begins with a tab or three spaces.
void AddBlankParag(ToolContext& context);
