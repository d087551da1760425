#pragma once

#include "tools/tool_context.h"

// Replaces and, on the editor, reports how often, unless a chain of tools runs. On a file bad
// settings are RuntimeError 252 to 254.
void SearchReplace(ToolContext& context, const SearchSettings& settings);
