#pragma once

#include "platform/window/window_system.h"

class QtClipboard : public Clipboard {
 public:
  bool HasText() const override;
  String GetText() const override;
  void SetText(StringView text) override;
  String GetRawText() const override;
  void SetRawText(StringView text) override;
  void Clear() override;
};
