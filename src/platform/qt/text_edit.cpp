#include "platform/qt/text_edit.h"

#include <QApplication>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>
#include <utility>

#include "platform/qt/clipboard_text.h"
#include "platform/qt/key_codes.h"
#include "platform/qt/text_layout.h"
#include "text/runtime_error.h"

namespace {

StringView View(const QString& text) {
  return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}

bool HoldsLongLine(const QString& raw) {
  qsizetype start = 0;
  while (raw.size() - start > kLongLine) {
    const qsizetype end = raw.indexOf(QChar::ParagraphSeparator, start);
    if (end < 0 || end - start > kLongLine) return true;
    start = end + 1;
  }
  return false;
}

}  // namespace

class TextEdit::Hold {
 public:
  explicit Hold(TextEdit& edit) : edit_(edit) { ++edit_.held_; }
  ~Hold() { --edit_.held_; }
  Hold(const Hold&) = delete;
  Hold& operator=(const Hold&) = delete;

 private:
  TextEdit& edit_;
};

TextEdit::TextEdit() {
  auto* const text = new QTextDocument(this);
  text->setDocumentLayout(new TextLayout(text, [this] { return qreal(viewport()->width()); }));
  setDocument(text);
  // The program has its own undo.
  setUndoRedoEnabled(false);
  setFrameShape(QFrame::NoFrame);
  setMinimumSize(200, 100);
  setAccessibleName(QStringLiteral("Text"));

  connect(document(), &QTextDocument::contentsChange, this, &TextEdit::NoteChange);
  connect(this, &QPlainTextEdit::textChanged, this, &TextEdit::Report);
  // A change moves the caret before it is told; textChanged follows and reports both in order.
  const auto moved = [this] {
    if (!edited_) Report();
  };
  connect(this, &QPlainTextEdit::cursorPositionChanged, this, moved);
  connect(this, &QPlainTextEdit::selectionChanged, this, moved);
}

TextEdit::~TextEdit() { NoteLongLine(false); }

void TextEdit::NoteLongLine(bool held) {
  if (std::exchange(holdsLongLine_, held) == held) return;
  setWordWrapMode(held ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere);
  QApplication::setCursorFlashTime(held ? 0 : flashTime_);
}

String TextEdit::Text() const { return conversion_.FromDocument(document()->toRawText()); }

String TextEdit::TextBetween(std::size_t from, std::size_t to) const {
  QTextCursor cursor(document());
  cursor.setPosition(DocumentPosition(*document(), from));
  cursor.setPosition(DocumentPosition(*document(), to), QTextCursor::KeepAnchor);
  return conversion_.FromDocument(cursor.selectedText());
}

TextEdit::Untouched TextEdit::TakeUntouched() {
  const std::size_t length = TextPosition(*document(), document()->characterCount() - 1);
  return std::exchange(untouched_, {length, length});
}

void TextEdit::SetText(StringView text) {
  {
    Hold hold(*this);
    auto raw = conversion_.ToDocument(text);
    if (!raw) {
      const DocumentText other = DocumentText::For({text});
      raw = other.ToDocument(text);
      conversion_ = other;
    } else if (raw->size() == document()->characterCount() - 1 && *raw == document()->toRawText()) {
      Select(0, 0);
      raw.reset();
    }
    if (raw) {
      // Before the text is laid out.
      NoteLongLine(HoldsLongLine(*raw));
      setPlainText(*raw);
    }
  }
  Report();
}

String TextEdit::SelectedText() const {
  return conversion_.FromDocument(textCursor().selectedText());
}

void TextEdit::Insert(StringView text) {
  {
    Hold hold(*this);
    if (const auto raw = conversion_.ToDocument(text)) {
      if (HoldsLongLine(*raw)) NoteLongLine(true);
      QTextCursor cursor = textCursor();
      if (cursor.selectedText() == *raw)
        cursor.setPosition(cursor.selectionEnd());
      else
        cursor.insertText(*raw);
      setTextCursor(cursor);
    } else {
      InsertWithOtherStandIns(text);
    }
  }
  Report();
}

void TextEdit::InsertWithOtherStandIns(StringView text) {
  const QTextCursor cursor = textCursor();
  const QString raw = document()->toRawText();
  const String before = conversion_.FromDocument(QStringView(raw).first(cursor.selectionStart()));
  const String after = conversion_.FromDocument(QStringView(raw).sliced(cursor.selectionEnd()));
  const DocumentText other = DocumentText::For({before, text, after});
  // One by one: a CR at the end of a part and an LF at the start of the next are no CR LF.
  QString whole = *other.ToDocument(before) + *other.ToDocument(text);
  const int caret = static_cast<int>(whole.size());
  whole += *other.ToDocument(after);
  conversion_ = other;
  QTextCursor all(document());
  all.select(QTextCursor::Document);
  all.insertText(whole);
  Select(caret, caret);
}

void TextEdit::InsertByUser(StringView text) {
  if (isReadOnly()) return;
  try {
    Insert(text);
  } catch (const RuntimeError&) {
    QApplication::beep();
  }
}

void TextEdit::Select(int anchor, int caret) {
  QTextCursor cursor = textCursor();
  cursor.setPosition(anchor);
  cursor.setPosition(caret, QTextCursor::KeepAnchor);
  setTextCursor(cursor);
  ensureCursorVisible();
}

void TextEdit::SetLocked(bool locked) {
  setTextInteractionFlags(locked ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                 : Qt::TextEditorInteraction);
  // Brings back the caret, which a change of these flags hides.
  setTextCursor(textCursor());
}

TextEdit::Selection TextEdit::CurrentSelection() const {
  const QTextCursor cursor = textCursor();
  return {cursor.anchor(), cursor.position()};
}

void TextEdit::NoteChange(int position, int removed, int added) {
  // An input method shows what it composes as a change of the line, yet the text is the same.
  if (composing_ && removed == added) return;
  edited_ = true;
  changedAt_ = position;
  // A whole new document counts its last line end among what was added.
  const int last = document()->characterCount() - 1;
  const std::size_t end = TextPosition(*document(), std::min(position + added, last));
  untouched_.Front = std::min(untouched_.Front, TextPosition(*document(), position));
  untouched_.End = std::min(untouched_.End, TextPosition(*document(), last) - end);
  if (OnTouch) OnTouch();
}

void TextEdit::Report() {
  if (held_ > 0) return;
  const bool edited = std::exchange(edited_, false);
  if (edited && document()->findBlock(changedAt_).length() > kLongLine) NoteLongLine(true);
  const Selection selection = CurrentSelection();
  if (selection != reported_) {
    reported_ = selection;
    if (OnMove) OnMove();
  }
  if (edited && OnEdit) OnEdit();
}

int TextEdit::FirstVisibleLine() const { return verticalScrollBar()->value(); }

void TextEdit::SetFirstVisibleLine(int line) { verticalScrollBar()->setValue(line); }

void TextEdit::mousePressEvent(QMouseEvent* event) {
  if (OnMouse) OnMouse();
  QPlainTextEdit::mousePressEvent(event);
}

void TextEdit::keyPressEvent(QKeyEvent* event) {
  KeyEvent key = ToKeyEvent(*event);
  if (OnKey) OnKey(key);
  if (key.Handled) return event->accept();
  const bool lineBreak = event->matches(QKeySequence::InsertLineSeparator);
  if (isReadOnly() || !(lineBreak || conversion_.NeedsConversion(View(event->text())))) {
    QPlainTextEdit::keyPressEvent(event);
    return;
  }
  InsertByUser(lineBreak ? kCrLf : View(event->text()));
  event->accept();
}

void TextEdit::inputMethodEvent(QInputMethodEvent* event) {
  const QString commit = event->commitString();
  const bool ownCommit = !isReadOnly() && conversion_.NeedsConversion(View(commit));
  if (ownCommit)
    event->setCommitString(QString(), event->replacementStart(), event->replacementLength());
  composing_ = event->commitString().isEmpty() && event->replacementLength() == 0;
  QPlainTextEdit::inputMethodEvent(event);
  composing_ = false;
  if (ownCommit) InsertByUser(View(commit));
}

void TextEdit::wheelEvent(QWheelEvent* event) {
  // Not the base class, which zooms a locked text.
  QAbstractScrollArea::wheelEvent(event);
}

void TextEdit::dragEnterEvent(QDragEnterEvent* event) {
  if (HoldsFiles(*event->mimeData()))
    event->ignore();
  else
    QPlainTextEdit::dragEnterEvent(event);
}

void TextEdit::dragMoveEvent(QDragMoveEvent* event) {
  if (HoldsFiles(*event->mimeData()))
    event->ignore();
  else
    QPlainTextEdit::dragMoveEvent(event);
}

void TextEdit::dropEvent(QDropEvent* event) {
  if (HoldsFiles(*event->mimeData()))
    event->ignore();
  else
    QPlainTextEdit::dropEvent(event);
}

QMimeData* TextEdit::createMimeDataFromSelection() const {
  auto* const copied = new QMimeData;
  copied->setText(ToClipboard(SelectedText()));
  return copied;
}

bool TextEdit::canInsertFromMimeData(const QMimeData* source) const { return HoldsText(*source); }

void TextEdit::insertFromMimeData(const QMimeData* source) {
  if (!source || !HoldsText(*source)) return;
  InsertByUser(FromClipboard(source->text()));
  if (OnPasted) OnPasted();
}
