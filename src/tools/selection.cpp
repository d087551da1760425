#include "tools/selection.h"

#include <exception>

namespace {

// Whether the text ends in one line end and not in an empty line. A place in front of the text
// holds neither CR nor LF.
bool EndsInOneLineEnd(StringView text) {
  const auto at = [text](std::size_t fromEnd) {
    return fromEnd <= text.size() ? text[text.size() - fromEnd] : u'\0';
  };
  return at(2) == kCr && at(3) != kLf;
}

}  // namespace

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
  fields.SelectionCrLfFlag = EndsInOneLineEnd(selected);
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
  // Cut the line end that the tool's line printing added; an empty line at the end had its own, and
  // another program may have added none.
  const StringView ending = result;
  if (!fields.SelectionCrLfFlag && ending.ends_with(kCrLf) && !ending.ends_with(u"\r\n\r\n"))
    result.resize(result.size() - kCrLf.size());
  const StringView whole = *wholeText_;
  String text(whole.substr(0, fields.ToolSelStart));
  text += result;
  if (fields.ToolSelEnd < whole.size()) text += whole.substr(fields.ToolSelEnd);
  editor.SetText(text);
  narrowed_ = nullptr;
  fields.SelectionUsedUp = result.empty();
  const std::size_t place = InStr(text, result);
  editor.SetSelStart(place == 0 ? 0 : place - 1);
  editor.SetSelLength(result.size());
  editor.Refresh();
  wholeText_.reset();
}
