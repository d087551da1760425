#include "tools/lines/blank_ends.h"

void DropBlankEnds(LineSource& in, LineSink& out) {
  bool begun = false;
  // Blank lines that may be the last ones, with their line ends.
  String held;
  while (!in.AtEnd()) {
    const StringView line = in.ReadLine();
    if (IsBlank(line)) {
      if (begun) held.append(line).append(kCrLf);
      continue;
    }
    out.Write(held);
    held.clear();
    out.Print(line);
    begun = true;
  }
}
