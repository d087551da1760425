#include "tools/tool_frame.h"

#include "editor/working_run.h"
#include "platform/system/files.h"
#include "text/runtime_error.h"
#include "tools/file_lines.h"
#include "tools/file_run.h"
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
    Tell(context, error);
    return false;
  }
  return true;
}

void RunOnFile(FileRun& run, const LineWork& work) {
  FileSource in(run.Input());
  run.Write([&](TextWriter& writer) {
    FileSink out(writer);
    work(in, out);
  });
}

}  // namespace

void Tell(ToolContext& context, const RuntimeError& error) {
  // The text does not suit the tool; the next one may do with it.
  const bool refusal =
      error.Code == kSubscriptOutOfRange || error.Code == kOverflow || error.Code == kNoBodyTag;
  if (context.File != nullptr || (context.CustomToolRunning && !refusal)) throw error;
  context.Messages.Notice(FromUtf8(error.what()));
}

void KeepForUndo(const SharedFields& fields, StringView text) {
  try {
    WriteWorkFile(fields.TempFile1, text);
  } catch (const std::exception&) {
    DeleteFileQuietly(fields.TempFile1);
  }
}

void RunCharacterTool(ToolContext& context, TextTransform transform) {
  if (context.File == nullptr) return TransformEditor(context, transform);
  RunOnFile(*context.File, [transform, result = String()](LineSource& in, LineSink& out) mutable {
    while (!in.AtEnd()) {
      transform(in.ReadLine(), result);
      out.Print(result);
    }
  });
}

bool RunLineTool(ToolContext& context, const LineWork& work, ToolScope scope) {
  if (context.File == nullptr) return RunOnEditor(context, work, scope);
  RunOnFile(*context.File, work);
  return true;
}

bool RunTableTool(ToolContext& context, const LineWork& work) {
  return RunLineTool(context, [&work](LineSource& in, LineSink& out) {
    BoundedSource lines(in);
    work(lines, out);
  });
}
