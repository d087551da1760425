#include "tools/html_from.h"

#include "platform/files.h"
#include "platform/runtime_error.h"
#include "tools/line_spacing.h"
#include "tools/text_from_html.h"
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

// The converted text becomes the input of the tool that takes its blank ends away.
void TrimFile(ToolContext& context) {
  SharedFields& fields = context.Fields;
  const String source = fields.InputFileNum->Path();
  fields.InputFileNum.reset();
  CopyFileContent(fields.TempFile1, fields.TempFile3);
  fields.InputFileNum = std::make_unique<TextReader>(fields.TempFile3);
  RemoveBlankLines(context);
  fields.InputFileNum = std::make_unique<TextReader>(source);
  DeleteFileQuietly(fields.TempFile3);
}

}  // namespace

void ConvertFROMHTML(ToolContext& context) {
  const auto before = context.RichTextBox1.SharedText();
  if (!RunLineTool(context, ConvertLines, ToolScope::WholeText)) return;
  if (context.Fields.BatchMode) return TrimFile(context);
  if (IsBlank(*before)) return;
  RemoveBlankLines(context);
  KeepForUndo(context.Fields, *before);
}
