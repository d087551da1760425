#pragma once
// The names of the custom tools, for the menu.

#include <map>
#include <vector>

#include "custom/custom_tool.h"

struct CustomToolList {
  // By the tools' numbers, 1 to 8, in proper case. A number that stands twice has the last name.
  std::map<int, String> Names;
  // The number that stands last.
  int Count = 0;
};

// The list in all lines of a custom tool file.
CustomToolList ListCustomTools(const std::vector<String>& lines);
// The list of a custom tool file. An unreadable file has no tools.
CustomToolList ReadCustomToolNames(const String& path);
