#include "editor/document.h"

#include <new>

#include "editor/encryption_marker.h"
#include "platform/system/files.h"

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

bool IsReadOnlyOnDisk(const String& path) {
  try {
    return IsReadOnly(path);
  } catch (const RuntimeError&) {
    return false;  // gone since it was read
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

// Puts the document's file name back unless the change to another one is kept.
class Document::KeptName {
 public:
  explicit KeptName(Document& document)
      : document_(document),
        fileName_(document.dialog_.FileName),
        fileTitle_(document.dialog_.FileTitle),
        hasFileName_(document.fields_.HasFileName) {}
  KeptName(const KeptName&) = delete;
  KeptName& operator=(const KeptName&) = delete;
  ~KeptName() {
    if (changed_) return;
    document_.dialog_.FileName = std::move(fileName_);
    document_.dialog_.FileTitle = std::move(fileTitle_);
    document_.fields_.HasFileName = hasFileName_;
  }
  void KeepChange() { changed_ = true; }

 private:
  Document& document_;
  String fileName_;
  String fileTitle_;
  bool hasFileName_;
  bool changed_ = false;
};

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
  // Which line ends were bare CRs is known of the old text alone.
  fields_.DocumentFormat.BareCrs.clear();
}

bool Document::MayLeave(StringView question) {
  if (!fields_.TextChanged || fields_.FileSaved) return true;
  const Answer answer = messages_.Ask(question);
  if (answer == Answer::Yes) BSaveFile();
  // The user who wants the text kept must not lose it to a failure or a cancelled dialog.
  return answer == Answer::No || (answer == Answer::Yes && fields_.FileSaved);
}

String Document::FileToRelock() const {
  if (!IsEncryptedTitle(title_.Get()) || fields_.ReadOnlyFile) return {};
  const bool leftAlone = fields_.HasFileName && !fields_.TextChanged;
  return fields_.FileSaved || leftAlone ? dialog_.FileName : String();
}

void Document::New() {
  if (!MayLeave(kBeforeNew)) return;
  if (const String file = FileToRelock(); !file.empty()) SetReadOnlyQuietly(file, true);
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
  const String relock = FileToRelock();
  KeptName name(*this);
  dialog_.DialogTitle = u"Open";
  dialog_.Flags = CommonDialog::kHideReadOnly;
  dialog_.Filter = kFilter;
  try {
    dialog_.ShowOpen();
    OpenChosen(relock);
    name.KeepChange();
  } catch (const RuntimeError& error) {
    TellOpenFailed(error);
  }
}

void Document::OpenDropped(const String& path) {
  if (!MayLeave(kBeforeOpen)) return;
  const String relock = FileToRelock();
  KeptName name(*this);
  try {
    dialog_.FileName = path;
    dialog_.FileTitle = FileNameOf(path);
    OpenChosen(relock);
    name.KeepChange();
  } catch (const RuntimeError& error) {
    TellOpenFailed(error);
  }
}

// The title of a file that could not be opened stays; its name does not, since the text in the
// editor still belongs to the file it came from.
void Document::TellOpenFailed(const RuntimeError& error) {
  if (error.Code == kDialogCancelled) return;
  host_.Tell(FromUtf8(error.what()));
  if (error.Code == kOutOfMemory) messages_.Notice(kTooLarge);
}

void Document::OpenChosen(const String& relock) {
  SetTitle(TitleState::Plain, dialog_.FileTitle);
  host_.ApplyOptions();
  // Before the file is read, which may be the same one.
  if (!relock.empty()) SetReadOnlyQuietly(relock, true);
  try {
    Load();
  } catch (const RuntimeError&) {
    if (!relock.empty()) SetReadOnlyQuietly(relock, false);
    throw;
  }
  ShowFileState(dialog_.FileTitle);
  host_.StartAnew();
}

void Document::OpenNamed(const String& path) {
  TestReadable(path);
  const String oldTitle = title_;
  KeptName name(*this);
  SetTitle(TitleState::Plain, path);
  dialog_.FileName = path;
  try {
    Load();
  } catch (const RuntimeError&) {
    title_ = oldTitle;
    throw;
  }
  name.KeepChange();
  ShowFileState(path);
}

void Document::NewNamed(const String& path) {
  title_ = String(kProduct) + u" - NEW FILE in " + path;
  fields_.HasFileName = true;
  fields_.TextChanged = fields_.FileSaved = false;
  fields_.ReadOnlyFile = FileExists(path) || FolderExists(path);
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
  if (IsReadOnlyOnDisk(dialog_.FileName)) {
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
  KeptName name(*this);
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
    name.KeepChange();
  } catch (const std::exception& error) {
    host_.Tell(FromUtf8(error.what()));
    messages_.Notice(kSaveFailed);
  }
}

void Document::Save() {
  const std::shared_ptr<const String> text = editor_.SharedText();
  TextFormat format = FormatThatHolds(*text, fields_.DocumentFormat);
  if (format.BareCrs.empty()) NoteLineEnds(*text, format);
  editor_.SaveFile(dialog_.FileName, format);
  if (format.Encoding != fields_.DocumentFormat.Encoding) {
    host_.Tell(u"Saved as " + EncodingName(format) + u": " + EncodingName(fields_.DocumentFormat) +
               u" cannot hold every character of the text.");
  }
  fields_.DocumentFormat = std::move(format);
  fields_.FileSaved = true;
  fields_.ReadOnlyFile = false;
  editor_.Locked = HoldsEncryptionMarker(*text);
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

bool Document::MayExit() {
  if (!MayLeave(kBeforeExit)) return false;
  if (const String file = FileToRelock(); !file.empty()) SetReadOnlyQuietly(file, true);
  return true;
}

void Document::ChooseEncoding(Encoding encoding, bool mark) {
  TextFormat& format = fields_.DocumentFormat;
  if (format.Encoding == encoding && format.Mark == mark) return;
  format.Encoding = encoding;
  format.Mark = mark;
  format.OddByte.reset();
  FormatHasChanged();
}

void Document::ChooseLineEnds(LineEnds lineEnds) {
  const std::shared_ptr<const String> text = editor_.SharedText();
  const String whole = WithWholeLineEnds(*text);
  TextFormat chosen = fields_.DocumentFormat;
  chosen.LineEnds = lineEnds;
  NoteLineEnds(whole, chosen);
  if (whole == *text && chosen == fields_.DocumentFormat) return;
  if (whole != *text) {
    const std::size_t caret = editor_.SelStart();
    editor_.SetText(whole);
    editor_.SetSelStart(caret);
  }
  fields_.DocumentFormat = std::move(chosen);
  FormatHasChanged();
}

void Document::FormatHasChanged() {
  // What an empty new document would be saved as is nothing to lose.
  if (fields_.HasFileName || editor_.TextLength() > 0) {
    fields_.TextChanged = true;
    fields_.FileSaved = false;
  }
  host_.DocumentChanged();
}
