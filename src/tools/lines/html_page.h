#pragma once
// Makes an HTML page of a text.

#include <optional>
#include <vector>

#include "tools/lines/lines.h"

struct HtmlPageSettings {
  // Lines of the user's own header and footer; nothing for the program's.
  std::optional<std::vector<String>> Header;
  std::optional<std::vector<String>> Footer;
  // A <BR> for every line.
  bool BreakLines = false;
  // No title of the text's first line.
  bool NoTitle = false;
  // Neither header nor footer.
  bool NoFrame = false;
};

// Changes the lines (links) and prints the page. RuntimeError 9 for more than 12000 lines or a
// header of more than 500.
void PrintHtmlPage(Lines& lines, HtmlPageSettings settings, LineSink& out);
