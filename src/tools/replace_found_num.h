#pragma once
// Reports how often Search and Replace has replaced.

#include "platform/window/form.h"

class ReplaceFoundNum : public Form {
 public:
  explicit ReplaceFoundNum(WindowSystem& windows);
  Layout Content() override;

  // Set it before the window is shown.
  int ReplaceCount = 0;

  Label Label1;
  CommandButton Command1;

 protected:
  void Load() override;
};
