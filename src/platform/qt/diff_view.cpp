// The lines of a comparison.

#include <QPlainTextEdit>
#include <QTextBlock>

#include "platform/qt/control_views.h"
#include "platform/qt/fonts.h"
#include "platform/qt/strings.h"

namespace {

// Mixed into the background, so that the colours fit light and dark palettes.
constexpr QRgb kAdded = qRgb(0x2E, 0xA0, 0x43);
constexpr QRgb kRemoved = qRgb(0xD7, 0x3A, 0x49);
constexpr double kStrength = 0.28;

QColor Tinted(const QColor& ground, QRgb tint) {
  const auto mix = [](int a, int b) { return qRound(a + (b - a) * kStrength); };
  return QColor(mix(ground.red(), qRed(tint)), mix(ground.green(), qGreen(tint)),
                mix(ground.blue(), qBlue(tint)));
}

// For eyes that see no colours, and for the clipboard.
QString MarkOf(DiffList::Kind kind) {
  switch (kind) {
    case DiffList::Kind::Added:
      return QStringLiteral("+ ");
    case DiffList::Kind::Removed:
      return QStringLiteral("- ");
    case DiffList::Kind::Plain:
      return QStringLiteral("  ");
    case DiffList::Kind::Heading:
      break;
  }
  return {};
}

class DiffView : public QPlainTextEdit {
 public:
  DiffView() {
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setLineWrapMode(NoWrap);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    setFont(ToQFont({.Name = {}, .Size = 0}));
  }

  void Show(const std::vector<DiffList::Row>& rows) {
    clear();
    QString text;
    for (const auto& row : rows) {
      if (&row != &rows.front()) text += QChar::ParagraphSeparator;
      QString line = ToQt(row.Text);
      // A line of text is a line of the view, whatever it holds.
      for (QChar& c : line)
        if (c == u'\r' || c == u'\n' || c == QChar::ParagraphSeparator) c = u' ';
      text += MarkOf(row.Style) + line;
    }
    setPlainText(text);
    Colour(rows);
  }

 private:
  void Colour(const std::vector<DiffList::Row>& rows) {
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    QTextBlock block = document()->firstBlock();
    for (const auto& row : rows) {
      cursor.setPosition(block.position());
      cursor.setPosition(block.position() + block.length() - 1, QTextCursor::KeepAnchor);
      if (row.Style == DiffList::Kind::Heading) {
        QTextCharFormat bold;
        bold.setFontWeight(QFont::Bold);
        cursor.setCharFormat(bold);
      } else if (row.Style != DiffList::Kind::Plain) {
        QTextBlockFormat ground;
        ground.setBackground(Tinted(palette().color(QPalette::Base),
                                    row.Style == DiffList::Kind::Added ? kAdded : kRemoved));
        cursor.setBlockFormat(ground);
      }
      block = block.next();
    }
    cursor.endEditBlock();
  }
};

}  // namespace

QWidget* MakeView(DiffList& list, Bindings& bindings) {
  auto* view = new DiffView;
  bindings.Follow(list.Rows, [&list, view] { view->Show(list.Rows); });
  return view;
}
