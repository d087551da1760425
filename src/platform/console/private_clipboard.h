#pragma once
// A clipboard that this process shares with nobody.

#include "platform/window/window_system.h"

class PrivateClipboard : public Clipboard {
 public:
  bool HasText() const override { return !text_.empty(); }
  String GetText() const override { return text_; }
  void SetText(StringView text) override {
    text_ = text;
    ++changes_;
  }
  String GetRawText() const override { return text_; }
  void SetRawText(StringView text) override { SetText(text); }
  void Clear() override { SetText({}); }
  long long Changes() const override { return changes_; }

 private:
  String text_;
  long long changes_ = 0;
};
