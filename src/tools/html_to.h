#pragma once

#include "tools/tool_context.h"

// Makes an HTML page of the text, as the window HTML is set. On a file RuntimeError 53 when a
// header or footer file is gone.
void ConvertToHTML(ToolContext& context);
// Asks for the settings first.
void LoadHTMLOptionForm(ToolContext& context);
