#pragma once
// How the text that is searched for is written.

#include <optional>
#include <vector>

#include "text/text.h"

inline constexpr StringView kOr = u"<OR>";
// The alternatives, parted by kOr in exact case; at least one. RuntimeError 9 above 50.
std::vector<String> SplitAlternatives(StringView searchFor);

// A text cut at its carriage returns, the line feed behind each taken for granted; at least one
// piece. RuntimeError 9 above 500 returns.
std::vector<String> SplitAtReturns(StringView alternative);

// The characters that a list of decimal codes of the single-byte code page stands for. The codes
// are parted by single spaces; what stands behind the number of a code is passed over, and so is
// one that isn't a number. Nothing where a code is outside 0 to 255.
std::optional<String> DecodeCodes(StringView list);
