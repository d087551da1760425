#pragma once
// Tools that are made of other tools: Fix Odd-Looking Characters and Email Cleanup.

#include "tools/tool_context.h"

// Typographic quotes, dashes and dots become plain ones.
void FixUpperASCII(ToolContext& context);
// Takes quote marks, indentation and blank lines around the text away, joins the lines of each
// paragraph, and repairs characters.
void EmailCleanup(ToolContext& context);
// The same without joining lines.
void EmailCleanupPoem(ToolContext& context);
