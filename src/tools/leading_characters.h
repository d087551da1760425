#pragma once
// The tools of the Alter Characters menu that work on the beginnings of lines.

#include "tools/tool_context.h"

// Takes the quote marks of mail away.
void RemoveLeadingSigns(ToolContext& context);
void RemoveOneSpace(ToolContext& context);
// Spaces, and one tab among them.
void RemoveALLSpace(ToolContext& context);
// A tab in front of each line that follows a blank line, unless it is indented.
void IndentParag(ToolContext& context);
