#pragma once
// Step 1 of the wizard: what it is for.

#include "editor/messages.h"

class MassConvert : public Form {
 public:
  MassConvert(WindowSystem& windows, Messages& messages);
  Layout Content() override;
  void CloseByFrame() override { Command2.Click(); }

  // Goes on with the next step.
  std::function<void()> OnNext;

  Label Label2;
  Label Label3;
  Label Label4;
  Label Label5;
  CommandButton Command1;
  CommandButton Command2;
  CommandButton Command3;
};
