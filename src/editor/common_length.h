#pragma once
// What two texts share.

#include <cstddef>

#include "text/text.h"

struct CommonLengths {
  std::size_t Front = 0;
  std::size_t End = 0;
};

// The longest common front, and the longest common end of what is left behind it. They never
// overlap and never part a surrogate pair.
CommonLengths FindCommonLengths(StringView a, StringView b);
