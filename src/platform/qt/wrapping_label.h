#pragma once
// A label whose text breaks at words and is never clipped.

#include <QLabel>

class WrappingLabel : public QLabel {
 public:
  WrappingLabel();
  void ShowText(const QString& text);
  // Breaks so as to fit a window of this width in characters, but not at fewer than 60.
  void FitColumns(int columns);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 private:
  int characters_ = kFewest;
  static constexpr int kFewest = 60;
};
