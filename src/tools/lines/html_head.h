#pragma once

#include "tools/lines/html_page.h"

// Prints everything in front of the body, with the text's first or second line as the title and
// heading where it is short enough. Returns the row that the body begins with, 1 to 3.
std::size_t PrintHtmlHead(const Lines& lines, const HtmlPageSettings& settings, LineSink& out);
