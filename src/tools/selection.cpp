#include "tools/selection.h"

#include <exception>

ToolSelection::~ToolSelection() {
  if (!narrowed_) return;
  try {
    narrowed_->SetText(*wholeText_);
    narrowed_->SetSelStart(selStart_);
    narrowed_->SetSelLength(selLength_);
  } catch (const std::exception&) {
    // Undo still has the text.
  }
}

void ToolSelection::SelectedTextBeforeTool(ToolContext& context, bool& keepLineEnd) {
  SharedFields& fields = context.Fields;
  RichTextBox& editor = context.RichTextBox1;
  wholeText_ = editor.SharedText();
  fields.ToolOnSelection = editor.SelLength() > 0;
  if (!fields.ToolOnSelection) return;
  fields.ToolSelStart = selStart_ = editor.SelStart();
  selLength_ = editor.SelLength();
  fields.ToolSelEnd = selStart_ + selLength_;
  const String selected = editor.SelText();
  narrowed_ = &editor;
  editor.SetText(selected);
  fields.SelectionCrLfFlag = selected.ends_with(kCrLf);
  if (keepLineEnd) {
    fields.SelectionCrLfFlag = true;
    keepLineEnd = false;
  }
}

void ToolSelection::SelectedTextAfterTool(ToolContext& context) {
  SharedFields& fields = context.Fields;
  RichTextBox& editor = context.RichTextBox1;
  if (!fields.ToolOnSelection) {
    wholeText_.reset();
    return;
  }
  String result = editor.Text();
  // Cut the line end that the tool's line printing added, if the selection had none of its own;
  // another program may have added none either.
  if (!fields.SelectionCrLfFlag && result.ends_with(kCrLf))
    result.resize(result.size() - kCrLf.size());
  const StringView whole = *wholeText_;
  String text(whole.substr(0, fields.ToolSelStart));
  text += result;
  if (fields.ToolSelEnd < whole.size()) text += whole.substr(fields.ToolSelEnd);
  editor.SetText(text);
  narrowed_ = nullptr;
  if (context.CustomToolRunning) {
    editor.SetSelStart(fields.ToolSelStart);
    editor.SetSelLength(result.size());
  } else {
    SelectFirst(editor, result);
  }
  // Also where the place is none that can be selected.
  fields.SelectionUsedUp = editor.SelLength() == 0;
  editor.Refresh();
  wholeText_.reset();
}

void SelectFirst(RichTextBox& editor, const String& part) {
  const std::size_t place = InStr(*editor.SharedText(), part);
  editor.SetSelStart(place == 0 ? 0 : place - 1);
  editor.SetSelLength(part.size());
}
