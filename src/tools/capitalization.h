#pragma once
// The tools of the Capitalization menu.

#include "tools/tool_context.h"

void UpperCaseText(ToolContext& context);
void LowerCaseText(ToolContext& context);
