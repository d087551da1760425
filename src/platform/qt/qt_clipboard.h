#pragma once

#include <QObject>

#include "platform/window/window_system.h"

class QtClipboard : public Clipboard {
 public:
  // The application must exist.
  QtClipboard();
  bool HasText() const override;
  String GetText() const override;
  void SetText(StringView text) override;
  String GetRawText() const override;
  void SetRawText(StringView text) override;
  void Clear() override;
  long long Changes() const override { return changes_; }

 private:
  // Ends the count with this object.
  QObject context_;
  long long changes_ = 0;
};
