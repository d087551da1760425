#pragma once
// The tools of the Capitalization menu.

#include "tools/tool_context.h"

void UpperCaseText(ToolContext& context);
void LowerCaseText(ToolContext& context);
void CapitalizeLines(ToolContext& context);
void CapitalizeSentences(ToolContext& context);
// Does nothing: stored tools may name it.
void CapitalizeCustom(ToolContext& context);
