#pragma once

#include "tools/tool_settings.h"

// Settings in one line for a person: "foo" -> "bar", whole words. Empty for none.
String SettingsLine(const ToolSettings& settings);
