#pragma once
// The lines of the edit control: one that runs from right to left stands at the right edge.

#include <QPlainTextDocumentLayout>
#include <functional>

class TextLayout : public QPlainTextDocumentLayout {
 public:
  // `visibleWidth` tells how much of a line can be seen where lines don't wrap.
  TextLayout(QTextDocument* document, std::function<qreal()> visibleWidth)
      : QPlainTextDocumentLayout(document), visibleWidth_(std::move(visibleWidth)) {}

  // Whoever draws a line or looks for a place in it asks this first.
  QRectF blockBoundingRect(const QTextBlock& block) const override;

 private:
  std::function<qreal()> visibleWidth_;
};
