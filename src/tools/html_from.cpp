#include "tools/html_from.h"

#include "platform/system/files.h"
#include "text/runtime_error.h"
#include "tools/file_chain.h"
#include "tools/line_spacing.h"
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

// The converted text becomes the input of the tool that takes its blank ends away.
void TrimFile(ToolContext& context) {
  SharedFields& fields = context.Fields;
  const String source = fields.InputFileNum->Path();
  fields.InputFileNum.reset();
  CopyFileContent(fields.TempFile1, fields.TempFile3);
  ReadResult(fields, fields.TempFile3);
  RemoveBlankLines(context);
  fields.InputFileNum = std::make_unique<TextReader>(source);
  DeleteFileQuietly(fields.TempFile3);
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
  if (!context.Fields.BatchMode) {
    RunLineTool(context, ConvertAndTrim, ToolScope::WholeText);
    return;
  }
  RunLineTool(context, ConvertLines, ToolScope::WholeText);
  TrimFile(context);
}
