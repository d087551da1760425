#pragma once
// Says that a long task goes on. It takes no input.

#include "platform/window/form.h"

class Working : public Form {
 public:
  explicit Working(WindowSystem& windows);
  Layout Content() override;
  Frame Style() const override { return Frame::Progress; }
  // The task cannot be stopped from here.
  void CloseByFrame() override {}

  Label Label1;
};
