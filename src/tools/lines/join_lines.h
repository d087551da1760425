#pragma once

#include "tools/lines/line_io.h"

// Joins each run of non-blank lines into one line: a space goes between two lines unless there is
// one, so that a joined line ends in a space. Blank lines become empty and are as many as before.
// A text without lines gives one empty line. Constant memory.
void JoinLines(LineSource& in, LineSink& out);
