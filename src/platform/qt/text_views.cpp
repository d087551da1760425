// Text boxes of one line and of many.

#include <QClipboard>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <limits>
#include <utility>

#include "platform/qt/clipboard_text.h"
#include "platform/qt/control_views.h"
#include "platform/qt/strings.h"

namespace {

// Tells a change that comes from the widget from one that the program makes, so that neither is
// sent back to where it came from.
using Flag = std::shared_ptr<bool>;

class Raised {
 public:
  explicit Raised(const Flag& flag) : flag_(flag), before_(*flag) { *flag_ = true; }
  ~Raised() { *flag_ = before_; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  Flag flag_;
  bool before_;
};

// Ties the selection: `read` takes it from the widget as start and end, `write` puts it there.
template <class Widget, class SignalOf>
void BindSelection(TextBox& box, Bindings& bindings, Widget* view,
                   std::initializer_list<SignalOf> signalsOf,
                   std::function<std::pair<int, int>()> read, std::function<void(int, int)> write) {
  const auto fromUser = std::make_shared<bool>(false);
  const auto show = [&box, fromUser, write] {
    const int size = static_cast<int>(box.Text.Get().size());
    const int start = std::clamp(box.SelStart.Get(), 0, size);
    if (!*fromUser) write(start, start + std::clamp(box.SelLength.Get(), 0, size - start));
  };
  bindings.Watch(box.SelStart, show);
  bindings.Watch(box.SelLength, show);
  for (const auto signal : signalsOf) {
    bindings.On(view, signal, [&box, fromUser, read] {
      const Raised raised(fromUser);
      const auto [start, end] = read();
      box.SelStart = start;
      box.SelLength = end - start;
    });
  }
}

class ClickFilter : public QObject {
 public:
  ClickFilter(TextBox& box, QObject* parent) : QObject(parent), box_(&box) {}
  void End() { box_ = nullptr; }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonDblClick) isSecond_ = true;
    if (box_ && event->type() == QEvent::MouseButtonRelease) {
      const bool isSecond = std::exchange(isSecond_, false);
      RunGuarded([this, isSecond] { isSecond ? box_->DblClick() : box_->Click(); });
    }
    return false;
  }

 private:
  TextBox* box_;
  bool isSecond_ = false;
};

void BindClick(TextBox& box, Bindings& bindings, QWidget* clicked) {
  auto* filter = new ClickFilter(box, clicked);
  clicked->installEventFilter(filter);
  bindings.AtEnd([filter] { filter->End(); });
}

class LineEdit : public QLineEdit {
 public:
  LineEdit() { setMinimumWidth(kNarrowest * fontMetrics().averageCharWidth()); }

 protected:
  // Qt would end the selection when a menu opens by its key, and Cut had nothing to cut.
  void focusOutEvent(QFocusEvent* event) override {
    if (event->reason() != Qt::MenuBarFocusReason) return QLineEdit::focusOutEvent(event);
    QFocusEvent kept(event->type(), Qt::PopupFocusReason);
    QLineEdit::focusOutEvent(&kept);
  }
  void keyPressEvent(QKeyEvent* event) override {
    // Line ends as the program has them, so that a search over lines finds what was pasted; and as
    // other programs have them on the way back.
    QClipboard& clipboard = *QGuiApplication::clipboard();
    const bool cuts = event->matches(QKeySequence::Cut) && !isReadOnly();
    if (event->matches(QKeySequence::Paste) && !isReadOnly()) {
      insert(ToQt(FromClipboard(clipboard.text())));
    } else if (hasSelectedText() && (cuts || event->matches(QKeySequence::Copy))) {
      clipboard.setText(ToClipboard(FromQt(selectedText())));
      if (cuts) del();
    } else {
      QLineEdit::keyPressEvent(event);
    }
  }

 private:
  static constexpr int kNarrowest = 14;  // characters
};

QWidget* MakeLine(TextBox& box, Bindings& bindings) {
  auto* view = new LineEdit;
  view->setMaxLength(std::numeric_limits<int>::max());
  bindings.Follow(box.Text, [&box, view] {
    if (FromQt(view->text()) == box.Text.Get()) return;
    const QSignalBlocker quiet(view);
    view->setText(ToQt(box.Text));
  });
  bindings.On(view, &QLineEdit::textChanged,
              [&box](const QString& text) { box.Text = FromQt(text); });
  bindings.Follow(box.Locked, [&box, view] { view->setReadOnly(box.Locked); });
  BindSelection(
      box, bindings, view, {&QLineEdit::selectionChanged},
      [view] {
        const int start = view->hasSelectedText() ? view->selectionStart() : view->cursorPosition();
        return std::pair(start, start + static_cast<int>(view->selectedText().size()));
      },
      [view](int start, int end) {
        const QSignalBlocker quiet(view);
        view->setSelection(start, end - start);
        if (start == end) view->setCursorPosition(start);
      });
  // A caret that moves without a selection.
  bindings.On(view, &QLineEdit::cursorPositionChanged, [&box, view] {
    if (view->hasSelectedText()) return;
    const QSignalBlocker quiet(view);
    box.SelLength = 0;
    box.SelStart = view->cursorPosition();
  });
  BindClick(box, bindings, view);
  return view;
}

// Blocks are parted by one character in the document and by CR LF in the program.
String TextOf(const QPlainTextEdit* view) {
  const QString raw = view->document()->toRawText();
  String text;
  text.reserve(static_cast<std::size_t>(raw.size()));
  for (const QChar c : raw) {
    if (c == QChar::ParagraphSeparator)
      text += kCrLf;
    else
      text += c.unicode();
  }
  return text;
}

int ProgramPosition(const QPlainTextEdit* view, int position) {
  return position + view->document()->findBlock(position).blockNumber();
}

int DocumentPosition(StringView text, int position) {
  const auto before = text.substr(0, static_cast<std::size_t>(position));
  return position - static_cast<int>(std::count(before.begin(), before.end(), kCr));
}

// Asks for fewer lines than Qt does, and takes what the window has.
class LinesEdit : public QPlainTextEdit {
 public:
  QSize sizeHint() const override {
    return {QPlainTextEdit::sizeHint().width(), kLines * fontMetrics().lineSpacing()};
  }

 private:
  static constexpr int kLines = 6;
};

QWidget* MakeLines(TextBox& box, Bindings& bindings) {
  auto* view = new LinesEdit;
  view->setTabChangesFocus(true);
  bindings.Follow(box.Text, [&box, view] {
    if (TextOf(view) == box.Text.Get()) return;
    const QSignalBlocker quiet(view);
    view->setPlainText(ToQt(box.Text));
  });
  bindings.On(view, &QPlainTextEdit::textChanged, [&box, view] { box.Text = TextOf(view); });
  bindings.Follow(box.Locked, [&box, view] {
    view->setTextInteractionFlags(box.Locked
                                      ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                      : Qt::TextEditorInteraction);
  });
  BindSelection(
      box, bindings, view,
      {&QPlainTextEdit::selectionChanged, &QPlainTextEdit::cursorPositionChanged},
      [view] {
        const QTextCursor cursor = view->textCursor();
        return std::pair(ProgramPosition(view, cursor.selectionStart()),
                         ProgramPosition(view, cursor.selectionEnd()));
      },
      [&box, view](int start, int end) {
        const QSignalBlocker quiet(view);
        QTextCursor cursor = view->textCursor();
        cursor.setPosition(DocumentPosition(box.Text.Get(), start));
        cursor.setPosition(DocumentPosition(box.Text.Get(), end), QTextCursor::KeepAnchor);
        view->setTextCursor(cursor);
      });
  BindClick(box, bindings, view->viewport());
  return view;
}

}  // namespace

QWidget* MakeView(TextBox& box, Bindings& bindings) {
  return box.MultiLine ? MakeLines(box, bindings) : MakeLine(box, bindings);
}
