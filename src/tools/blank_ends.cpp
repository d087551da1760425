#include "tools/blank_ends.h"

#include "tools/lines.h"

void DropBlankEnds(LineSource& in, LineSink& out) {
  const Lines lines(in);
  std::size_t first = 1;
  while (first <= lines.Count() && IsBlank(lines.At(first))) ++first;
  std::size_t last = lines.Count();
  while (last > first && IsBlank(lines.At(last))) --last;
  lines.PrintTo(out, first, last);
}
