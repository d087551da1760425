#pragma once
// The order in which a person expects names.

#include <vector>

#include "text/text.h"

// Sorts by the collation of the user's locale without regard to case, and numbers by their value:
// "page 9" comes before "Page 10".
void SortNaturally(std::vector<String>& names);
