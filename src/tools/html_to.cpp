#include "tools/html_to.h"

#include "text/runtime_error.h"
#include "tools/lines/html_page.h"
#include "tools/tool_frame.h"

namespace {

std::optional<std::vector<String>> ReadPart(const String& file) {
  if (IsDefaultPart(file)) return std::nullopt;
  try {
    TextReader reader(file);
    std::vector<String> lines;
    while (!reader.AtEnd()) lines.emplace_back(reader.ReadLine());
    return lines;
  } catch (const RuntimeError& error) {
    throw RuntimeError(kFileNotFound,
                       "The header or footer file cannot be read: " + std::string(error.what()));
  }
}

HtmlPageSettings PageSettings(const HtmlSettings& chosen, bool noFrame) {
  HtmlPageSettings settings;
  settings.BreakLines = chosen.BreakLines;
  settings.NoTitle = chosen.NoTitle;
  settings.NoFrame = noFrame;
  if (settings.NoFrame) return settings;
  settings.Header = ReadPart(chosen.HeaderFile);
  settings.Footer = ReadPart(chosen.FooterFile);
  return settings;
}

}  // namespace

void ConvertToHTML(ToolContext& context, const HtmlSettings& settings) {
  RunLineTool(
      context,
      [&](LineSource& in, LineSink& out) {
        HtmlPageSettings page = PageSettings(settings, context.Fields.NoHtmlHeaderFooter);
        Lines lines(in);
        PrintHtmlPage(lines, std::move(page), out);
      },
      ToolScope::WholeText);
}
