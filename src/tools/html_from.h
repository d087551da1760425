#pragma once

#include "tools/tool_context.h"

// Makes plain text of an HTML page. A page without a BODY tag stays as it is; on a file that is
// RuntimeError 255.
void ConvertFROMHTML(ToolContext& context);
