#include "platform/qt/text_layout.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <algorithm>

namespace {

// The direction of a longer line is not looked for: it fills the window anyway.
constexpr int kLongestAtTheEdge = 20000;

}  // namespace

QRectF TextLayout::blockBoundingRect(const QTextBlock& block) const {
  QRectF rect = QPlainTextDocumentLayout::blockBoundingRect(block);
  if (!block.isValid() || block.length() > kLongestAtTheEdge ||
      block.textDirection() != Qt::RightToLeft)
    return rect;
  const qreal margin = document()->documentMargin();
  const qreal visible = visibleWidth_() - 2 * margin;
  const QTextLayout& lines = *block.layout();
  for (int i = 0; i < lines.lineCount(); ++i) {
    QTextLine line = lines.lineAt(i);
    const qreal room = visible - line.naturalTextWidth();
    line.setPosition({margin + std::max(room, 0.), line.y()});
    rect.setRight(std::max(rect.right(), line.x() + line.naturalTextWidth() + margin));
  }
  return rect;
}
