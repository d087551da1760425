#pragma once
// Cut, copy, paste and their like, on the editor or on the text box that has the keyboard.

#include "platform/window/key_event.h"
#include "platform/window/window_system.h"
#include "state/shared_fields.h"

class EditCommands {
 public:
  // `activeControl` is the control that has the keyboard; the editor counts when it is no text box.
  EditCommands(WindowSystem& windows, RichTextBox& editor, const Property<Control*>& activeControl);

  // Nothing selected, or no text to paste: text and clipboard stay. Whether they are allowed on
  // locked text is for the caller to know.
  void Cut();
  void Copy();
  void CopyAll();
  void Paste();
  void Delete() { ReplaceSelection(u""); }

  void SelectAll();

  // Ctrl+V on its way to the control: leaves plain text alone on the clipboard, so that nothing
  // else can be pasted.
  void BeforeKeyPaste();

  // Pasted text may be encrypted; set by the owner.
  std::function<void()> CheckSetLock;

 private:
  // The text box that has the keyboard, if one has.
  TextBox* ActiveTextBox() const;
  String SelectedText() const;
  void ReplaceSelection(StringView text);
  void Put(StringView text);

  WindowSystem& windows_;
  RichTextBox& editor_;
  const Property<Control*>& activeControl_;
  // Puts the clipboard back after a key paste.
  std::unique_ptr<Timer> timer1_;
  String clipboardKeep_;
  long long changesAtPaste_ = 0;
};
