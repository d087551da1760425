#pragma once
// The position, typed as text, at which lines are broken.

#include <cstddef>

#include "text/text.h"

// The whole number at the start of the text; spaces before and between its digits are passed over,
// and any other character ends it. 0 when there is no digit. Larger than any text can be counts as
// just that.
std::size_t BreakPosition(StringView text);

// What is wrong with a position that the user has typed; empty when it will do.
StringView CheckBreakPosition(StringView text);
