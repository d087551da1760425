#pragma once
// Where a text stands in another, as a user searches.

#include <cstddef>
#include <optional>

#include "text/text.h"

enum FindOption : int { kWholeWord = 2, kMatchCase = 4 };

// Position (from 0) of the first `what` at or after `start`; none for an empty `what`. A whole word
// is bounded by what is neither letter, digit nor underscore. Without kMatchCase the case of any
// script is ignored.
std::optional<std::size_t> FindText(StringView text, StringView what, std::size_t start,
                                    int options);
