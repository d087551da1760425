#include "editor/edit_commands.h"

#include <exception>

namespace {

constexpr int kClipboardBackMilliseconds = 4000;

constexpr StringView kNoPaste =
    u"This text has been encrypted and no editing may be done until after it is decrypted.";
constexpr StringView kNoEditing =
    u"This text has been encrypted and no editing tasks may be done until after it is decrypted.";

// What the clipboard or the control refuses leaves things as they are.
template <class Work>
void Quietly(Work work) {
  try {
    work();
  } catch (const std::exception&) {
  }
}

}  // namespace

EditCommands::EditCommands(WindowSystem& windows, RichTextBox& editor,
                           const Property<Control*>& activeControl, Messages& messages)
    : windows_(windows),
      editor_(editor),
      activeControl_(activeControl),
      messages_(messages),
      timer1_(windows.CreateTimer()) {
  timer1_->SetInterval(kClipboardBackMilliseconds);
  timer1_->OnTimer = [this] {
    timer1_->SetEnabled(false);
    // What was copied meanwhile, here or in another program, is newer and stays.
    ::Clipboard& clipboard = windows_.Clipboard();
    if (clipboard.Changes() == changesAtPaste_) clipboard.SetRawText(clipboardKeep_);
    clipboardKeep_.clear();
  };
}

bool EditCommands::Refused(StringView message) {
  if (!editor_.Locked) return false;
  messages_.Notice(message);
  return true;
}

TextBox* EditCommands::ActiveTextBox() const {
  return dynamic_cast<TextBox*>(activeControl_.Get());
}

String EditCommands::SelectedText() const {
  const TextBox* box = ActiveTextBox();
  return box ? box->SelText() : editor_.SelText();
}

void EditCommands::ReplaceSelection(StringView text) {
  if (TextBox* box = ActiveTextBox())
    box->SetSelText(text);
  else
    editor_.SetSelText(text);
}

void EditCommands::Cut() {
  if (!Refused(kNoEditing)) CutText();
}

void EditCommands::Copy() {
  if (!Refused(kNoEditing)) CopyText();
}

void EditCommands::CopyAll() {
  if (Refused(kNoEditing)) return;
  SelectAll();
  windows_.Clipboard().SetText(editor_.SelText());
}

void EditCommands::Paste() {
  if (!Refused(kNoPaste)) PasteText();
}

void EditCommands::Delete() {
  if (!Refused(kNoEditing)) ReplaceSelection(u"");
}

void EditCommands::SelectAll() {
  editor_.SetSelStart(0);
  editor_.SetSelLength(editor_.TextLength());
}

void EditCommands::CopyText() {
  const String selected = SelectedText();
  if (!selected.empty()) Quietly([&] { Put(selected); });
}

void EditCommands::CutText() {
  const String selected = SelectedText();
  if (selected.empty()) return;
  Quietly([&] {
    Put(selected);
    ReplaceSelection(u"");
  });
}

void EditCommands::PasteText() {
  Quietly([this] {
    const String text = windows_.Clipboard().GetText();
    if (text.empty()) return;
    ReplaceSelection(text);
    if (CheckSetLock) CheckSetLock();
  });
}

void EditCommands::Put(StringView text) {
  windows_.Clipboard().Clear();
  windows_.Clipboard().SetText(text);
}

void EditCommands::BeforeKeyPaste() {
  if (timer1_->Enabled()) return;
  ::Clipboard& clipboard = windows_.Clipboard();
  if (!clipboard.HasText()) {
    clipboard.Clear();
    return;
  }
  clipboardKeep_ = clipboard.GetRawText();
  clipboard.SetRawText(clipboardKeep_);
  changesAtPaste_ = clipboard.Changes();
  timer1_->SetEnabled(true);
}
