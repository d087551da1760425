#include "tools/lines/html_page.h"

#include "text/runtime_error.h"
#include "tools/lines/html_body.h"
#include "tools/lines/html_head.h"
#include "tools/lines/html_links.h"

namespace {

constexpr std::size_t kMostLines = 12000;
constexpr std::size_t kMostHeaderLines = 500;

}  // namespace

void PrintHtmlPage(Lines& lines, HtmlPageSettings settings, LineSink& out) {
  if (lines.Count() > kMostLines) {
    throw RuntimeError(kSubscriptOutOfRange,
                       "The text has more than 12000 lines and was not converted.");
  }
  if (settings.Header && settings.Header->size() > kMostHeaderLines) {
    throw RuntimeError(kSubscriptOutOfRange,
                       "The header file has more than 500 lines.  The text was not converted.");
  }
  for (std::size_t row = 1; row <= lines.Count(); ++row) AddLinks(lines[row]);
  const std::size_t firstOfBody = PrintHtmlHead(lines, settings, out);
  PrintHtmlBody(lines, firstOfBody, settings, out);
  if (settings.NoFrame) return;
  if (!settings.Footer) settings.Footer = {u"</BODY>", u"</HTML>"};
  for (const String& line : *settings.Footer) out.Print(line);
}
