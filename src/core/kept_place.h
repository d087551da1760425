#pragma once
// Where the user is in a text that a tool changes.

#include <memory>

#include "platform/window/rich_text_box.h"

// Takes note of the caret's line and of the line at the top of the view.
class KeptPlace {
 public:
  explicit KeptPlace(RichTextBox& editor);

  // Goes back there: to where it was in a text that is the same, by line where as many lines are
  // there, else in proportion. After a tool on a selection, what the tool selected stays.
  void Restore() const;

 private:
  RichTextBox& editor_;
  std::shared_ptr<const String> text_;
  std::size_t selStart_;
  std::size_t selLength_;
  TextPlace caret_;
  std::size_t firstVisibleLine_;
};
