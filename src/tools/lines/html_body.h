#pragma once

#include "tools/lines/html_page.h"

// Prints the rows from `first` on, marked up, and the paragraph mark that ends them.
void PrintHtmlBody(const Lines& lines, std::size_t first, const HtmlPageSettings& settings,
                   LineSink& out);
