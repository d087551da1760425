#pragma once
// How a tool works on a selection without knowing of it: the selection is made to look like the
// whole text.

#include "tools/tool_context.h"

// Where the tool fails, the whole text and its selection come back when the object goes.
class ToolSelection {
 public:
  ToolSelection() = default;
  ToolSelection(const ToolSelection&) = delete;
  ToolSelection& operator=(const ToolSelection&) = delete;
  ~ToolSelection();

  // The tool sees the selection, where there is one, as its whole text from here on. Tools that
  // never add a line end of their own pass true, and nothing is cut off afterwards; the argument is
  // then set to false.
  void SelectedTextBeforeTool(ToolContext& context, bool& keepLineEnd);
  // Puts what the tool made of the selection back into the whole text, and selects it: the first
  // place where it stands, or for the next tool of a chain where it really is.
  void SelectedTextAfterTool(ToolContext& context);

  // The text before the tool, kept in memory: a full disk must not cost the rest of the text.
  const String& WholeText() const { return *wholeText_; }

 private:
  std::shared_ptr<const String> wholeText_;
  // While the editor holds the selection alone.
  RichTextBox* narrowed_ = nullptr;
  std::size_t selStart_ = 0;
  std::size_t selLength_ = 0;
};

// Selects the first place where the text holds `part`.
void SelectFirst(RichTextBox& editor, const String& part);
