#include "tools/lines/join_lines.h"

void JoinLines(LineSource& in, LineSink& out) {
  bool any = false;
  bool inParagraph = false;
  while (!in.AtEnd()) {
    const StringView line = in.ReadLine();
    any = true;
    if (IsBlank(line)) {
      if (inParagraph) out.Print({});
      out.Print({});
      inParagraph = false;
      continue;
    }
    out.Write(line);
    if (line.back() != u' ') out.Write(u" ");
    inParagraph = true;
  }
  if (inParagraph || !any) out.Print({});
}
