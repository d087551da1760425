#include "tools/capitalization.h"

#include "tools/tool_frame.h"

void UpperCaseText(ToolContext& context) { RunCharacterTool(context, UCaseInto); }

void LowerCaseText(ToolContext& context) { RunCharacterTool(context, LCaseInto); }
