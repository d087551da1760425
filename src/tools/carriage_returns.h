#pragma once
// The tools of the Carriage Returns menu.

#include "tools/tool_context.h"

// Joins the lines of each paragraph into one.
void RemoveCarriage(ToolContext& context);

// Breaks long lines.
void AddCarriage2(ToolContext& context, const AddSettings& settings);
