#pragma once
// Asks which program a Run Program step starts.

#include <memory>

#include "editor/messages.h"
#include "platform/common_dialog.h"

class RunProgramSettings : public Form {
 public:
  RunProgramSettings(WindowSystem& windows, Messages& messages);
  Layout Content() override;
  void CloseByFrame() override { Command3.Click(); }
  String AnswerUnattended() override;

  // The user has refused; set while the window is away.
  bool Cancelled = false;

  Label Label1;
  Label Label2;
  Label Label3;
  TextBox Text1;  // path of the program
  TextBox Text2;  // its arguments behind the file
  CommandButton Command1;
  CommandButton Command2;
  CommandButton Command3;

 private:
  void Browse();
  void Ok();

  Messages& messages_;
  std::unique_ptr<CommonDialog> dialog_;
};
