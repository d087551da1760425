#pragma once
// The names of the custom tools, for the menu.

#include <map>

#include "custom/custom_tool.h"

// The names in a custom tool file by the tools' numbers, 1 to 8, in proper case. A name that stands
// under a number twice counts as it stands last. An unreadable file has none.
std::map<int, String> ReadCustomToolNames(const String& path);
