#pragma once
// The Find panel below the editor.

#include <cstddef>
#include <optional>

#include "editor/messages.h"
#include "platform/window/layout.h"
#include "platform/window/rich_text_box.h"

class FindPanel {
 public:
  FindPanel(RichTextBox& editor, Messages& messages);

  // The panel's row in the window.
  ::Layout Layout();
  void Open();
  void Close();
  bool IsOpen() const { return txtFindText.Visible; }
  // Opens the panel instead where there is nothing to search for yet.
  void FindNext();
  // A new document: the next search starts at the top.
  void StartAnew();

  Label lblFindWhat;
  TextBox txtFindText;
  CommandButton cmdFind;
  CommandButton cmdReturn;
  CheckBox chkMatchCase;
  CheckBox chkWholeWord;

  // Where the next search starts; 0 is a new search.
  std::size_t FindPos = 0;
  // The last hit.
  std::optional<std::size_t> FoundPos;

 private:
  void Show(bool visible);
  void FindTextFromMain(std::size_t start);
  void Find();

  RichTextBox& editor_;
  Messages& messages_;
};
