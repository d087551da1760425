#include "platform/qt/qt_rich_text_box.h"

#include <QTextBlock>
#include <climits>

#include "platform/qt/fonts.h"
#include "platform/qt/large_string.h"

namespace {

constexpr int kTabColumns = 8;

}  // namespace

QtRichTextBox::QtRichTextBox()
    : edit_(new TextEdit),
      lockedChanged_(Locked.Observe([this] { edit_->SetLocked(Locked); })),
      rightMarginChanged_(RightMargin.Observe([this] { ApplyWrap(); })),
      fontChanged_(Font.Observe([this] { ApplyFont(); })) {
  ApplyFont();
  edit_->OnTouch = [this] { TextIsAnother(); };
  edit_->OnEdit = [this] {
    if (OnChange) OnChange();
  };
  edit_->OnKey = [this](KeyEvent& key) {
    if (OnKeyDown) OnKeyDown(key);
  };
  edit_->OnPasted = [this] {
    if (OnPaste) OnPaste();
  };
  edit_->OnMouse = [this] {
    if (OnMouseDown) OnMouseDown();
  };
  edit_->OnMove = [this] {
    if (OnSelChange) OnSelChange();
  };
}

QtRichTextBox::~QtRichTextBox() { delete edit_; }

String QtRichTextBox::Text() const { return edit_->Text(); }

RichTextBox::SharedString QtRichTextBox::ReadText(const SharedString& before) const {
  const TextEdit::Untouched untouched = edit_->TakeUntouched();
  const std::size_t length = TextLength();
  // A large middle is read faster as part of the whole.
  if (!before || untouched.Front + untouched.End < length / 2)
    return std::make_shared<const String>(Text());
  String text = WithRoomFor(length);
  text.append(*before, 0, untouched.Front);
  text += edit_->TextBetween(untouched.Front, length - untouched.End);
  text.append(*before, before->size() - untouched.End);
  return std::make_shared<const String>(std::move(text));
}

std::size_t QtRichTextBox::TextLength() const {
  const QTextDocument& document = *edit_->document();
  return TextPosition(document, document.characterCount() - 1);
}

void QtRichTextBox::SetText(StringView text) { edit_->SetText(text); }

std::size_t QtRichTextBox::SelStart() const {
  return TextPosition(*edit_->document(), edit_->textCursor().selectionStart());
}

std::size_t QtRichTextBox::SelLength() const {
  return TextPosition(*edit_->document(), edit_->textCursor().selectionEnd()) - SelStart();
}

void QtRichTextBox::SetSelStart(std::size_t position) {
  const int place = DocumentPosition(*edit_->document(), position);
  edit_->Select(place, place);
}

void QtRichTextBox::SetSelLength(std::size_t length) {
  const std::size_t start = SelStart();
  const std::size_t end = start + std::min(length, TextLength() - start);
  edit_->Select(edit_->textCursor().selectionStart(), DocumentPosition(*edit_->document(), end));
}

String QtRichTextBox::SelText() const { return edit_->SelectedText(); }

void QtRichTextBox::SetSelText(StringView text) { edit_->Insert(text); }

TextPlace QtRichTextBox::Caret() const {
  const QTextCursor cursor = edit_->textCursor();
  return {.Line = static_cast<std::size_t>(cursor.block().blockNumber()) + 1,
          .Column = static_cast<std::size_t>(cursor.positionInBlock()) + 1};
}

std::size_t QtRichTextBox::FirstVisibleLine() const {
  return static_cast<std::size_t>(edit_->FirstVisibleLine());
}

void QtRichTextBox::SetFirstVisibleLine(std::size_t line) {
  edit_->SetFirstVisibleLine(static_cast<int>(std::min<std::size_t>(line, INT_MAX)));
}

void QtRichTextBox::SetRedraw(bool on) { edit_->setUpdatesEnabled(on); }

void QtRichTextBox::Refresh() { edit_->viewport()->repaint(); }

void QtRichTextBox::ApplyFont() {
  edit_->setFont(ToQFont(Font));
  edit_->setTabStopDistance(kTabColumns * QFontMetricsF(edit_->font()).horizontalAdvance(u' '));
}

void QtRichTextBox::ApplyWrap() {
  edit_->setLineWrapMode(RightMargin == 0 ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
}
