#pragma once
// Tools that are made of other tools: Fix Odd-Looking Characters and Email Cleanup.

#include "tools/tool_context.h"

// Typographic quotes, dashes and dots become plain ones. Leaves its own settings in
// SearchReplaceForm.
void FixUpperASCII(ToolContext& context);
// Takes quote marks, indentation and blank lines around the text away, joins the lines of each
// paragraph, and repairs characters. Leaves its own settings in SearchReplaceForm.
void EmailCleanup(ToolContext& context);
// The same without joining lines.
void EmailCleanupPoem(ToolContext& context);

// The same on the editor, as one tool of its own: the user's search settings stay, and the plain
// undo goes back to the text from before the first step.
void FixUpperASCIIFromMenu(ToolContext& context);
void EmailCleanupFromMenu(ToolContext& context);
void EmailCleanupPoemFromMenu(ToolContext& context);
