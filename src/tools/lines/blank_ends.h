#pragma once

#include "tools/lines/line_io.h"

// Passes on all lines from the first to the last that is not blank.
void DropBlankEnds(LineSource& in, LineSink& out);
