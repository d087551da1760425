#pragma once
// Break one long line into several. `position` is the character of the line, counted from 1, that
// no longer fits. Time is linear in the length of the line.

#include <cstddef>

#include "tools/lines/broken_line.h"
#include "tools/lines/line_io.h"

// Into pieces of position - 1 characters, whatever they are; below position 2 there are none. A
// piece that would end in the middle of a surrogate pair ends one character earlier; one that would
// have nothing but half a pair holds the whole.
void BreakExactly(StringView line, std::size_t position, LineSink& out);

// Breaks lines at the spaces nearest to every position; the space gives way to the line end. A word
// that is too long stays whole, and the end of the line competes with the space before it.
class WordBreaker {
 public:
  void Break(StringView line, std::size_t position, LineSink& out);

 private:
  // Kept for its memory.
  BrokenLine broken_;
};
