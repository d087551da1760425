#pragma once
// A chain of line tools over a large file without loading it: what the editor would make of it, in
// constant memory.

#include "custom/custom_tool.h"
#include "tools/tool_context.h"

// Runs the steps of a tool on `file` and saves the result as `target`. False, and nothing is
// changed, where the editor has to do it: the file is small, a step needs more than one line at a
// time, or the result would not be the same. RuntimeError.
//
// large: bytes from which on it pays off.
bool RunStreamed(ToolContext& context, const CustomTool& tool, const String& file,
                 const String& target, std::uint64_t large = 1024 * 1024);
