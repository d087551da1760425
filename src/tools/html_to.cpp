#include "tools/html_to.h"

#include "text/runtime_error.h"
#include "tools/ask_settings.h"
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

HtmlPageSettings SettingsFor(const ToolContext& context) {
  const HTML& form = context.Tools.HTML;
  HtmlPageSettings settings;
  settings.BreakLines = form.Check1.Value == 1;
  settings.NoTitle = form.Check2.Value == 1;
  settings.NoFrame = context.Fields.NoHtmlHeaderFooter;
  if (settings.NoFrame) return settings;
  settings.Header = ReadPart(form.Text1.Text);
  settings.Footer = ReadPart(form.Text2.Text);
  return settings;
}

}  // namespace

void ConvertToHTML(ToolContext& context) {
  // The file as it is, wherever it was read to; the next reader finds it the same.
  if (context.Fields.BatchMode) context.Fields.InputFileNum->Rewind();
  RunLineTool(
      context,
      [&context](LineSource& in, LineSink& out) {
        HtmlPageSettings settings = SettingsFor(context);
        Lines lines(in);
        PrintHtmlPage(lines, std::move(settings), out);
      },
      ToolScope::WholeText);
  if (context.Fields.BatchMode) context.Fields.InputFileNum->Rewind();
}

void LoadHTMLOptionForm(ToolContext& context) {
  if (IsBlank(*context.RichTextBox1.SharedText())) return;
  HTML& form = context.Tools.HTML;
  const SharedFields& fields = context.Fields;
  if (!IsBlank(fields.DefaultHeaderFile)) form.Text1.Text = fields.DefaultHeaderFile;
  if (!IsBlank(fields.DefaultFooterFile)) form.Text2.Text = fields.DefaultFooterFile;
  AskSettingsAndRun(context, form, ConvertToHTML);
}
