#include "tools/html_from.h"

#include "text/runtime_error.h"
#include "tools/lines/blank_ends.h"
#include "tools/lines/lines.h"
#include "tools/lines/text_from_html.h"
#include "tools/lines/text_lines.h"
#include "tools/tool_frame.h"

namespace {

void ConvertLines(LineSource& in, LineSink& out) {
  TextFromHtml page;
  while (!in.AtEnd()) page.Line(in.ReadLine(), out);
  if (!page.BodySeen()) {
    throw RuntimeError(kNoBodyTag,
                       "No <BODY> tag was found.  In order to convert from HTML to text, there "
                       "must be a <BODY> tag in the file.");
  }
}

// At once, so that a page whose text has too many lines is not changed at all.
void ConvertAndTrim(LineSource& in, LineSink& out) {
  TextSink converted;
  ConvertLines(in, converted);
  TextSource text(converted.Text);
  BoundedSource lines(text);
  DropBlankEnds(lines, out);
}

}  // namespace

void ConvertFROMHTML(ToolContext& context) {
  RunLineTool(context, ConvertAndTrim, ToolScope::WholeText);
}
