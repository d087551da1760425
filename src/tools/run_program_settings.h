#pragma once
// Asks which program a Run Program step starts.

#include <memory>

#include "platform/window/common_dialog.h"
#include "tools/settings_form.h"

class RunProgramSettings : public SettingsFormOf<RunSettings> {
 public:
  RunProgramSettings(WindowSystem& windows, Messages& messages);
  Layout Content() override;

  Label Label1;
  Label Label2;
  Label Label3;
  TextBox Text1;  // path of the program
  TextBox Text2;  // its arguments behind the file
  CommandButton Command1;
  CommandButton Command2;
  CommandButton Command3;
  CommandButton Command4;

 protected:
  bool Check() override;

 private:
  void Browse();

  std::unique_ptr<CommonDialog> dialog_;
};
