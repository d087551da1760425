#pragma once

#include "tools/settings_form.h"
#include "tools/tool_context.h"

// Runs a tool with what the user sets in its window. A refused window holds again what it held
// before; a blank text asks for nothing.
void AskSettingsAndRun(ToolContext& context, SettingsForm& form, void (*tool)(ToolContext&));
