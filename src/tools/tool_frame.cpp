#include "tools/tool_frame.h"

#include "editor/working_run.h"
#include "platform/system/files.h"
#include "text/runtime_error.h"
#include "tools/file_lines.h"
#include "tools/lines/text_lines.h"
#include "tools/selection.h"

namespace {

void TransformEditor(ToolContext& context, TextTransform transform) {
  RichTextBox& editor = context.RichTextBox1;
  if (IsBlank(*editor.SharedText())) return;
  context.Fields.ToolRan = true;
  ToolSelection selection;
  bool keepLineEnd = true;
  selection.SelectedTextBeforeTool(context, keepLineEnd);
  KeepForUndo(context.Fields, selection.WholeText());
  String result;
  transform(*editor.SharedText(), result);
  editor.SetText(result);
  editor.Refresh();
  selection.SelectedTextAfterTool(context);
}

bool RunOnEditor(ToolContext& context, const LineWork& work, ToolScope scope) {
  RichTextBox& editor = context.RichTextBox1;
  if (IsBlank(*editor.SharedText())) return true;
  const WorkingRun working(context.Fields, context.Messages, context.Windows, editor.TextLength());
  context.Fields.ToolRan = true;
  KeepForUndo(context.Fields, *editor.SharedText());
  try {
    ToolSelection selection;
    bool keepLineEnd = false;
    if (scope == ToolScope::Selection) selection.SelectedTextBeforeTool(context, keepLineEnd);
    TextSink out;
    {
      const auto text = editor.SharedText();
      TextSource in(*text);
      // Most tools add little.
      out.Text.reserve(text->size() + text->size() / 16);
      work(in, out);
    }
    editor.SetText(out.Text);
    if (scope == ToolScope::Selection) selection.SelectedTextAfterTool(context);
  } catch (const RuntimeError& error) {
    context.Messages.Notice(FromUtf8(error.what()));
    return false;
  }
  return true;
}

// Closes the result of a tool that fails, too.
struct OutputCloser {
  SharedFields& Fields;
  ~OutputCloser() { Fields.OutputFileNum.reset(); }
};

void RunOnFile(SharedFields& fields, const LineWork& work) {
  FileSource in(*fields.InputFileNum);
  const OutputCloser closer{fields};
  fields.OutputFileNum =
      std::make_unique<TextWriter>(fields.TempFile1, fields.InputFileNum->Format());
  FileSink out(*fields.OutputFileNum);
  work(in, out);
  fields.OutputFileNum->Close();
  fields.OutputFormat = fields.OutputFileNum->Format();
}

}  // namespace

void KeepForUndo(const SharedFields& fields, StringView text) {
  try {
    WriteWorkFile(fields.TempFile1, text);
  } catch (const std::exception&) {
    DeleteFileQuietly(fields.TempFile1);
  }
}

void RunCharacterTool(ToolContext& context, TextTransform transform) {
  if (!context.Fields.BatchMode) return TransformEditor(context, transform);
  RunOnFile(context.Fields, [transform, result = String()](LineSource& in, LineSink& out) mutable {
    while (!in.AtEnd()) {
      transform(in.ReadLine(), result);
      out.Print(result);
    }
  });
}

bool RunLineTool(ToolContext& context, const LineWork& work, ToolScope scope) {
  if (!context.Fields.BatchMode) return RunOnEditor(context, work, scope);
  RunOnFile(context.Fields, work);
  return true;
}

bool RunTableTool(ToolContext& context, const LineWork& work) {
  return RunLineTool(context, [&work](LineSource& in, LineSink& out) {
    BoundedSource lines(in);
    work(lines, out);
  });
}
