#pragma once

#include <vector>

#include "tools/lines/line_replacer.h"
#include "tools/lines/lines.h"

// Replaces text that spans lines: `pieces`, two or more, of which the first is not empty, against
// consecutive lines. Each match becomes one line, or none. Behind a match of more than two lines as
// many lines less two can't begin the next one.
void ReplaceAcrossLines(Lines& lines, const std::vector<String>& pieces,
                        const SearchSettings& settings, ReplaceState& state);
