#pragma once

#include "tools/line_io.h"

// Passes on all lines from the first to the last that is not blank. RuntimeError 9 for more than
// Lines::kMostRows lines.
void DropBlankEnds(LineSource& in, LineSink& out);
