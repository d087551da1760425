#pragma once
// Break one long line into several by putting CR LF into it. `position` is the character of the
// line, counted from 1, that no longer fits; below 2 nothing is broken. Time and memory are linear
// in the length of the line.

#include <cstddef>

#include "platform/text.h"

// Pieces of position - 1 characters, whatever they are. A piece that would end in the middle of a
// surrogate pair ends one character earlier; one that would have nothing but half a pair holds the
// whole.
void BreakExactly(String& line, std::size_t position);

// At the spaces nearest to every position; the space gives way to the line end. A word that is too
// long stays whole, and the end of the line competes with the space before it.
void BreakAtWords(String& line, std::size_t position);
