#include "editor/edit_commands.h"

#include <exception>

namespace {

constexpr int kClipboardBackMilliseconds = 4000;

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
                           const Property<Control*>& activeControl)
    : windows_(windows),
      editor_(editor),
      activeControl_(activeControl),
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

void EditCommands::CopyAll() {
  SelectAll();
  windows_.Clipboard().SetText(editor_.SelText());
}

void EditCommands::SelectAll() {
  editor_.SetSelStart(0);
  editor_.SetSelLength(editor_.TextLength());
}

void EditCommands::Copy() {
  const String selected = SelectedText();
  if (!selected.empty()) Quietly([&] { Put(selected); });
}

void EditCommands::Cut() {
  const String selected = SelectedText();
  if (selected.empty()) return;
  Quietly([&] {
    Put(selected);
    ReplaceSelection(u"");
  });
}

void EditCommands::Paste() {
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
