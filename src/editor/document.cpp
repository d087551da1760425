#include "editor/document.h"

#include <new>

#include "editor/encryption_marker.h"
#include "platform/system/files.h"
#include "platform/system/safe_save.h"

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

Document::Document(SharedFields& fields, RichTextBox& editor, CommonDialog& dialog,
                   Messages& messages, DocumentHost& host)
    : fields_(fields), editor_(editor), dialog_(dialog), messages_(messages), host_(host) {}

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
  if (!encrypted_ || fields_.ReadOnlyFile) return {};
  const bool leftAlone = fields_.HasFileName && !fields_.TextChanged;
  return fields_.FileSaved || leftAlone ? file_.Path : String();
}

String Document::Title() const {
  if (!failedName_.empty()) return TitleOf(TitleState::Plain, failedName_);
  if (!fields_.HasFileName) return String(kUntitled);
  if (file_.IsNew) return NewFileTitle(file_.Path);
  return TitleOf(encrypted_             ? TitleState::Encrypted
                 : fields_.ReadOnlyFile ? TitleState::ReadOnly
                                        : TitleState::Plain,
                 file_.ShownName);
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
  editor_.Locked = encrypted_ = false;
  file_ = {};
  failedName_.clear();
  host_.StartAnew();
  host_.DocumentChanged();
}

void Document::BOpenFile() {
  if (!MayLeave(kBeforeOpen)) return;
  const String relock = FileToRelock();
  dialog_.DialogTitle = u"Open";
  dialog_.Flags = CommonDialog::kHideReadOnly;
  dialog_.Filter = kFilter;
  dialog_.FileName = file_.Path;
  try {
    dialog_.ShowOpen();
  } catch (const RuntimeError&) {
    return;
  }
  OpenOrTell({dialog_.FileName, dialog_.FileTitle}, relock);
}

void Document::OpenDropped(const String& path) {
  if (MayLeave(kBeforeOpen)) OpenOrTell({path, String(FileNameOf(path))}, FileToRelock());
}

void Document::OpenOrTell(File file, const String& relock) {
  try {
    Open(std::move(file), relock);
  } catch (const RuntimeError& error) {
    host_.Tell(FromUtf8(error.what()));
    if (error.Code == kOutOfMemory) messages_.Notice(kTooLarge);
  }
}

void Document::Open(File file, const String& relock) {
  failedName_ = file.ShownName;
  host_.DocumentChanged();
  host_.ApplyOptions();
  // Before the file is read, which may be the same one.
  if (!relock.empty()) SetReadOnlyQuietly(relock, true);
  try {
    Load(std::move(file));
  } catch (const RuntimeError&) {
    if (!relock.empty()) SetReadOnlyQuietly(relock, false);
    throw;
  }
  host_.StartAnew();
}

void Document::OpenNamed(const String& path) {
  TestReadable(path);
  Load({path, path});
}

void Document::NewNamed(const String& path) {
  file_ = {.Path = path, .ShownName = path, .IsNew = true};
  fields_.HasFileName = true;
  fields_.TextChanged = fields_.FileSaved = false;
  fields_.ReadOnlyFile = FileExists(path) || FolderExists(path);
  host_.DocumentChanged();
}

void Document::TellLeftovers() {
  String names;
  for (const String& path : LeftoversBeside(file_.Path)) names += u" " + path;
  if (!names.empty()) host_.Tell(u"Left by a save that was broken off:" + names);
}

void Document::Load(File file) {
  try {
    fields_.DocumentFormat = editor_.LoadFile(file.Path);
  } catch (const std::bad_alloc&) {
    throw RuntimeError(kOutOfMemory, ToUtf8(file.Path) + ": out of memory");
  }
  file_ = std::move(file);
  failedName_.clear();
  fields_.TextChanged = fields_.FileSaved = false;
  fields_.HasFileName = true;
  fields_.ReadOnlyFile = IsReadOnlyOnDisk(file_.Path);
  editor_.Locked = encrypted_ = HoldsEncryptionMarker(*editor_.SharedText());
  if (encrypted_ && fields_.ReadOnlyFile) {
    fields_.ReadOnlyFile = false;
    SetReadOnlyQuietly(file_.Path, false);
  }
  host_.DocumentChanged();
  TellLeftovers();
}

std::optional<Document::File> Document::FileToSaveTo(bool asNew) {
  bool askForName = !fields_.HasFileName || asNew;
  if (!asNew && fields_.ReadOnlyFile) {
    if (messages_.Ask(kSaveReadOnly) != Answer::Yes) return std::nullopt;
    askForName = true;
  }
  if (!askForName) return File{file_.Path, file_.ShownName};
  dialog_.DialogTitle = u"Save As";
  dialog_.Flags = CommonDialog::kHideReadOnly | CommonDialog::kOverwritePrompt;
  dialog_.Filter = kFilter;
  dialog_.FileName = file_.Path;
  try {
    dialog_.ShowSave();
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
  return File{dialog_.FileName, IsBlank(dialog_.FileTitle) ? dialog_.FileName : dialog_.FileTitle};
}

void Document::BSaveFile(bool asNew) {
  std::optional<File> file = FileToSaveTo(asNew);
  if (!file) return;
  fields_.FileSaved = false;
  try {
    Save(std::move(*file));
  } catch (const std::exception& error) {
    host_.Tell(FromUtf8(error.what()));
    messages_.Notice(kSaveFailed);
  }
}

void Document::Save(File file) {
  const std::shared_ptr<const String> text = editor_.SharedText();
  TextFormat format = FormatThatHolds(*text, fields_.DocumentFormat);
  if (format.BareCrs.empty()) NoteLineEnds(*text, format);
  const bool hasSource = fields_.HasFileName && FileExists(file_.Path);
  editor_.SaveFile(file.Path, format, hasSource ? file_.Path : String());
  const bool keepsEncoding = format.Encoding == fields_.DocumentFormat.Encoding;
  if (!keepsEncoding) {
    host_.Tell(u"Saved as " + EncodingName(format) + u": " + EncodingName(fields_.DocumentFormat) +
               u" cannot hold every character of the text.");
  }
  file_ = std::move(file);
  failedName_.clear();
  fields_.DocumentFormat = std::move(format);
  fields_.HasFileName = true;
  fields_.FileSaved = true;
  fields_.ReadOnlyFile = false;
  editor_.Locked = encrypted_ = HoldsEncryptionMarker(*text);
  host_.DocumentChanged();
  // The news about the text itself stays.
  if (keepsEncoding) TellLeftovers();
}

void Document::CheckSetLock() {
  if (!HoldsEncryptionMarker(*editor_.SharedText())) return;
  editor_.Locked = true;
  // A read-only file is shown as that; it can't be saved, so it need not become read-only again.
  encrypted_ = !fields_.ReadOnlyFile;
  host_.StartAnew();
  host_.DocumentChanged();
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
