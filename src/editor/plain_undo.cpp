#include "editor/plain_undo.h"

#include "editor/working_run.h"
#include "text/runtime_error.h"

void PlainUndo(SharedFields& fields, RichTextBox& editor, Messages& messages,
               WindowSystem& windows) {
  if (!fields.ToolRan) return;
  const WorkingRun working(fields, messages, windows, editor.TextLength());
  try {
    editor.SetText(ReadWorkFile(fields.TempFile1));
  } catch (const RuntimeError&) {
    // There is nothing to go back to.
  }
}
