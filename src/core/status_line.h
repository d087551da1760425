#pragma once
// The main window's status bar: where the caret is, what is selected, and how the next save writes
// the file.

#include <array>

#include "editor/document.h"
#include "platform/window/bars.h"
#include "state/shared_fields.h"

class StatusLine {
 public:
  StatusLine(const SharedFields& fields, RichTextBox& editor, Document& document);

  void ShowCaret();
  void ShowFormat();
  // All choices of the panels. None can be made on locked text.
  std::vector<MenuItem*> Choices();

  StatusBar Bar;
  StatusPanel Position;
  StatusPanel Selected;
  StatusPanel EncodingPanel;
  StatusPanel LineEndsPanel;
  // The choices of the last two panels, in the order shown.
  std::array<MenuItem, 5> EncodingChoices;
  std::array<MenuItem, 2> LineEndsChoices;

 private:
  const SharedFields& fields_;
  const RichTextBox& editor_;
  Signal::Subscription lockedChange_;
};
