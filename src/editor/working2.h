#pragma once
// Progress of a batch.

#include "platform/window/form.h"

class Working2 : public Form {
 public:
  explicit Working2(WindowSystem& windows);
  Layout Content() override;
  void CloseByFrame() override { Command1.Click(); }

  // The user wants the batch to stop; the batch reads it between files.
  bool CancelClicked = false;

  Label Label1;
  Label Label2;
  // What the batch is doing.
  Label Label3;
  CommandButton Command1;

 protected:
  void Load() override { CancelClicked = false; }
};
