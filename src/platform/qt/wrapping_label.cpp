#include "platform/qt/wrapping_label.h"

namespace {

// Of the window, on both sides together, in characters.
constexpr int kMargins = 5;
// A word this long gets places to break at.
constexpr int kLongWord = 40;

// Long paths and other words without blanks: an invisible place to break behind each "/", and where
// even that leaves too much.
QString WithBreaks(const QString& text) {
  QString result;
  result.reserve(text.size());
  int inWord = 0;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = text[i];
    result += c;
    inWord = c.isSpace() ? 0 : inWord + 1;
    const bool halfPair = c.isHighSurrogate();
    if ((inWord > 1 && c == u'/') || (inWord >= kLongWord && !halfPair)) {
      result += QChar(0x200B);
      inWord = 0;
    }
  }
  return result;
}

}  // namespace

WrappingLabel::WrappingLabel() {
  setWordWrap(true);
  setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void WrappingLabel::ShowText(const QString& text) {
  setText(WithBreaks(text));
  updateGeometry();
}

void WrappingLabel::FitColumns(int columns) {
  characters_ = std::max(kFewest, columns - kMargins);
  updateGeometry();
}

QSize WrappingLabel::sizeHint() const {
  const QFontMetrics metrics = fontMetrics();
  const int natural = metrics.size(Qt::TextShowMnemonic, text()).width() + 2;
  const int width = std::min(natural, metrics.averageCharWidth() * characters_);
  return {width, heightForWidth(width)};
}
