#include "tools/tool_chain.h"

#include <exception>

#include "tools/file_run.h"
#include "tools/selection.h"
#include "tools/tool_frame.h"

ToolChain::ToolChain(ToolContext& context) : inner_(context) {
  inner_.Fields.SelectionUsedUp = false;
  if (context.File != nullptr || context.CustomToolRunning) return;
  inner_.CustomToolRunning = true;
  textBefore_ = context.RichTextBox1.SharedText();
}

ToolChain::~ToolChain() {
  if (!textBefore_) return;
  try {
    KeepForUndo(inner_.Fields, *textBefore_);
    RichTextBox& editor = inner_.RichTextBox1;
    if (editor.SelLength() > 0) SelectFirst(editor, editor.SelText());
  } catch (const std::exception&) {
    // The text itself is whole.
  }
}

bool ToolChain::Next() {
  if (inner_.File != nullptr) inner_.File->Next();
  return !inner_.Fields.SelectionUsedUp;
}
