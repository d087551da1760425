#pragma once

#include "tools/tool_context.h"

// Makes an HTML page of the text. RuntimeError 53 on a file and in a chain when a header or footer
// file is gone.
void ConvertToHTML(ToolContext& context, const HtmlSettings& settings);
