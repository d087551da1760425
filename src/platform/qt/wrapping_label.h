#pragma once
// A label whose text breaks at words at about 60 characters and is never clipped.

#include <QLabel>

class WrappingLabel : public QLabel {
 public:
  WrappingLabel();
  void ShowText(const QString& text);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }
};
