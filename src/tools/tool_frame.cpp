#include "tools/tool_frame.h"

#include "platform/files.h"
#include "platform/runtime_error.h"
#include "tools/selection.h"

namespace {

// The plain undo's copy. Where it can't be written it must not hold an older text either.
void KeepForUndo(const SharedFields& fields, StringView text) {
  try {
    WriteWorkFile(fields.TempFile1, text);
  } catch (const std::exception&) {
    DeleteFileQuietly(fields.TempFile1);
  }
}

void RunOnEditor(ToolContext& context, TextTransform transform) {
  RichTextBox& editor = context.RichTextBox1;
  if (IsBlank(*editor.SharedText())) return;
  context.Fields.ToolRan = true;
  ToolSelection selection;
  bool keepLineEnd = true;
  selection.SelectedTextBeforeTool(context, keepLineEnd);
  KeepForUndo(context.Fields, selection.WholeText());
  String result;
  transform(editor.Text(), result);
  editor.SetText(result);
  editor.Refresh();
  selection.SelectedTextAfterTool(context);
}

void RunOnFile(SharedFields& fields, TextTransform transform) {
  TextReader& input = *fields.InputFileNum;
  fields.OutputFileNum = std::make_unique<TextWriter>(fields.TempFile1, input.Format());
  String result;
  while (!input.AtEnd()) {
    transform(input.ReadLine(), result);
    fields.OutputFileNum->Print(result);
  }
  fields.OutputFileNum->Close();
  fields.OutputFileNum.reset();
}

}  // namespace

void RunCharacterTool(ToolContext& context, TextTransform transform) {
  if (context.Fields.BatchMode)
    RunOnFile(context.Fields, transform);
  else
    RunOnEditor(context, transform);
}
