#pragma once
// Shown while the program starts.

#include "platform/window/form.h"

class frmSplash : public Form {
 public:
  explicit frmSplash(WindowSystem& windows);
  Layout Content() override;
  Frame Style() const override { return Frame::Splash; }

  Image Image1;
  Label Label1;
  Label Label2;
};
