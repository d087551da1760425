#pragma once
// Says that the settings of a custom tool's steps will be asked for, once for all files.

#include "platform/window/form.h"

class CustShowWinNotice : public Form {
 public:
  explicit CustShowWinNotice(WindowSystem& windows);
  Layout Content() override;

  // The pass of the batch, 1 to 3. Set it before the window is shown.
  int ToolPass = 1;

  Label Label1;
  Label Label2;
  CommandButton Command1;

 protected:
  void Load() override;
};
