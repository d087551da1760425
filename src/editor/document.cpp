#include "editor/document.h"

#include <new>

#include "editor/encryption_marker.h"
#include "platform/files.h"
#include "platform/runtime_error.h"

namespace {

constexpr StringView kFilter =
    u"Known Text Files (*.txt;*.html;*.htm;*.cgi;*.pl;*.js)|*.txt;*.html;*.htm;*.cgi;*.pl;*.js|"
    u"Text Files (*.txt)|*.txt|HTML Files (*.html;*.htm)|*.html;*.htm|All Files (*.*)|*.*";

constexpr StringView kBeforeOpen =
    u"The text in this file has changed.  Would you like to save the changes before opening "
    u"another file?";
constexpr StringView kBeforeNew =
    u"The text in this file has changed.  Would you like to save the changes before opening a new "
    u"file?";
constexpr StringView kBeforeExit =
    u"The text in this file has changed.  Would you like to save the changes before exiting?";
constexpr StringView kSaveReadOnly =
    u"This file is a read-only file and cannot be saved to the same file.  Would you like to save "
    u"to a different file name?";
constexpr StringView kTooLarge = u"Error while loading file - The file is too large to open.";
constexpr StringView kSaveFailed = u"An error occured while trying to save.";

void SetReadOnlyQuietly(const String& path, bool readOnly) {
  try {
    if (IsReadOnly(path) != readOnly) SetReadOnly(path, readOnly);
  } catch (const RuntimeError&) {
    // The lock on disk is a courtesy; the document does not depend on it.
  }
}

// The LFs that stand without a CR as line ends.
String WithWholeLineEnds(StringView text) {
  String result;
  result.reserve(text.size());
  char16_t before = 0;
  for (const char16_t c : text) {
    if (c == kLf && before != kCr) result += kCr;
    result += c;
    before = c;
  }
  return result;
}

// The kinds of line ends that a file has once this text is written in this format.
void NoteLineEnds(StringView text, TextFormat& format) {
  format.HasCrLf = format.HasCr = format.HasLf = false;
  format.BareCrs.clear();
  char16_t before = 0;
  for (const char16_t c : text) {
    if (c == kLf) {
      const bool lineEnd = before == kCr;
      (lineEnd && format.LineEnds == LineEnds::CrLf ? format.HasCrLf : format.HasLf) = true;
    }
    before = c;
  }
}

}  // namespace

Document::Document(SharedFields& fields, RichTextBox& editor, CommonDialog& dialog,
                   Messages& messages, Property<String>& title, DocumentHost& host)
    : fields_(fields),
      editor_(editor),
      dialog_(dialog),
      messages_(messages),
      title_(title),
      host_(host) {}

void Document::TextHasChanged() {
  fields_.TextChanged = true;
  fields_.FileSaved = false;
}

bool Document::MayLeave(StringView question) {
  if (fields_.TextChanged && !fields_.FileSaved) {
    const Answer answer = messages_.Ask(question);
    if (answer == Answer::Cancel) return false;
    if (answer == Answer::Yes) {
      BSaveFile();
      // The user wanted the text kept and it is not: a failure or a cancelled dialog must not cost
      // him the text.
      if (!fields_.FileSaved) return false;
    }
  }
  Relock();
  return true;
}

void Document::Relock() {
  if (!IsEncryptedTitle(title_.Get()) || fields_.ReadOnlyFile) return;
  const bool leftAlone = fields_.HasFileName && !fields_.TextChanged;
  if (fields_.FileSaved || leftAlone) SetReadOnlyQuietly(dialog_.FileName, true);
}

void Document::New() {
  if (!MayLeave(kBeforeNew)) return;
  editor_.SetText(u"");
  editor_.SetFocus();
  host_.ApplyOptions();
  fields_.TextChanged = fields_.FileSaved = false;
  fields_.ReadOnlyFile = false;
  fields_.HasFileName = false;
  fields_.DocumentFormat = {};
  editor_.Locked = false;
  title_ = String(kUntitled);
  dialog_.FileName.clear();
  dialog_.FileTitle.clear();
  host_.StartAnew();
  host_.DocumentChanged();
}

void Document::BOpenFile() {
  if (!MayLeave(kBeforeOpen)) return;
  const String oldName = dialog_.FileName;
  const String oldTitle = dialog_.FileTitle;
  dialog_.DialogTitle = u"Open";
  dialog_.Flags = CommonDialog::kHideReadOnly;
  dialog_.Filter = kFilter;
  try {
    dialog_.ShowOpen();
    OpenChosen();
  } catch (const RuntimeError& error) {
    // The text in the editor still belongs to the file it came from.
    dialog_.FileName = oldName;
    dialog_.FileTitle = oldTitle;
    if (error.Code == kOutOfMemory) messages_.Notice(kTooLarge);
    if (error.Code != kDialogCancelled) host_.Tell(FromUtf8(error.what()));
  }
}

void Document::OpenDropped(const String& path) {
  if (!MayLeave(kBeforeOpen)) return;
  const String oldName = dialog_.FileName;
  const String oldTitle = dialog_.FileTitle;
  try {
    dialog_.FileName = path;
    dialog_.FileTitle = FileNameOf(path);
    OpenChosen();
  } catch (const RuntimeError& error) {
    dialog_.FileName = oldName;
    dialog_.FileTitle = oldTitle;
    if (error.Code == kOutOfMemory) messages_.Notice(kTooLarge);
    host_.Tell(FromUtf8(error.what()));
  }
}

void Document::OpenChosen() {
  SetTitle(TitleState::Plain, dialog_.FileTitle);
  host_.ApplyOptions();
  Load();
  ShowFileState(dialog_.FileTitle);
  host_.StartAnew();
}

void Document::OpenNamed(const String& path) {
  TestReadable(path);
  const String oldTitle = title_;
  SetTitle(TitleState::Plain, path);
  const String oldName = dialog_.FileName;
  dialog_.FileName = path;
  try {
    Load();
  } catch (const RuntimeError&) {
    dialog_.FileName = oldName;
    title_ = oldTitle;
    throw;
  }
  ShowFileState(path);
}

void Document::NewNamed(const String& path) {
  title_ = String(kProduct) + u" - NEW FILE in " + path;
  fields_.HasFileName = true;
  fields_.TextChanged = fields_.FileSaved = false;
  dialog_.FileName = path;
}

void Document::Load() {
  try {
    fields_.DocumentFormat = editor_.LoadFile(dialog_.FileName);
  } catch (const std::bad_alloc&) {
    throw RuntimeError(kOutOfMemory, ToUtf8(dialog_.FileName) + ": out of memory");
  }
  fields_.TextChanged = fields_.FileSaved = false;
  fields_.HasFileName = true;
  fields_.ReadOnlyFile = false;
  host_.DocumentChanged();
}

void Document::ShowFileState(StringView name) {
  if (IsReadOnly(dialog_.FileName)) {
    SetTitle(TitleState::ReadOnly, name);
    fields_.ReadOnlyFile = true;
  }
  editor_.Locked = HoldsEncryptionMarker(*editor_.SharedText());
  if (!editor_.Locked) return;
  if (fields_.ReadOnlyFile) {
    fields_.ReadOnlyFile = false;
    SetReadOnlyQuietly(dialog_.FileName, false);
  }
  SetTitle(TitleState::Encrypted, name);
}

void Document::SetTitle(TitleState state, StringView name) { title_ = TitleOf(state, name); }

StringView Document::ShownName() const {
  return IsBlank(dialog_.FileTitle) ? dialog_.FileName : dialog_.FileTitle;
}

void Document::SaveAs() {
  fields_.SaveAsRequested = true;
  BSaveFile();
  fields_.SaveAsRequested = false;
}

void Document::BSaveFile() {
  fields_.FileSaved = false;
  bool askForName = !fields_.HasFileName || fields_.SaveAsRequested;
  if (!fields_.SaveAsRequested && fields_.ReadOnlyFile) {
    if (messages_.Ask(kSaveReadOnly) != Answer::Yes) return;
    askForName = true;
  }
  if (askForName) {
    dialog_.DialogTitle = u"Save As";
    dialog_.Flags = CommonDialog::kHideReadOnly | CommonDialog::kOverwritePrompt;
    dialog_.Filter = kFilter;
    try {
      dialog_.ShowSave();
    } catch (const RuntimeError&) {
      return;
    }
    if (!dialog_.FileName.empty()) fields_.HasFileName = true;
  }
  try {
    Save();
  } catch (const std::exception& error) {
    messages_.Notice(kSaveFailed);
    host_.Tell(FromUtf8(error.what()));
  }
}

void Document::Save() {
  const String text = editor_.Text();
  TextFormat format = FormatThatHolds(text, fields_.DocumentFormat);
  if (fields_.TextChanged) NoteLineEnds(text, format);
  editor_.SaveFile(dialog_.FileName, format);
  fields_.DocumentFormat = std::move(format);
  fields_.FileSaved = true;
  fields_.ReadOnlyFile = false;
  editor_.Locked = HoldsEncryptionMarker(text);
  SetTitle(editor_.Locked ? TitleState::Encrypted : TitleState::Plain, ShownName());
  host_.DocumentChanged();
}

void Document::CheckSetLock() {
  if (!HoldsEncryptionMarker(*editor_.SharedText())) return;
  editor_.Locked = true;
  host_.StartAnew();
  for (const String& name : {dialog_.FileTitle, dialog_.FileName}) {
    if (title_ == TitleOf(TitleState::Plain, name)) SetTitle(TitleState::Encrypted, name);
  }
}

bool Document::MayExit() { return MayLeave(kBeforeExit); }

void Document::ChooseEncoding(Encoding encoding, bool mark) {
  TextFormat& format = fields_.DocumentFormat;
  if (format.Encoding == encoding && format.Mark == mark) return;
  format.Encoding = encoding;
  format.Mark = mark;
  format.OddByte.reset();
  TextHasChanged();
  host_.DocumentChanged();
}

void Document::ChooseLineEnds(LineEnds lineEnds) {
  TextFormat& format = fields_.DocumentFormat;
  const String text = editor_.Text();
  const String whole = WithWholeLineEnds(text);
  TextFormat chosen = format;
  chosen.LineEnds = lineEnds;
  NoteLineEnds(whole, chosen);
  if (whole == text && chosen == format) return;
  if (whole != text) {
    const std::size_t caret = editor_.SelStart();
    editor_.SetText(whole);
    editor_.SetSelStart(caret);
  }
  format = std::move(chosen);
  TextHasChanged();
  host_.DocumentChanged();
}
