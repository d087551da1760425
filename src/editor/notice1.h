#pragma once
// Tells the user something.

#include "platform/window/form.h"

class Notice1 : public Form {
 public:
  explicit Notice1(WindowSystem& windows);
  Layout Content() override;
  String AnswerUnattended() override;

  // What to tell; set it before the window is shown.
  String NoticeMessage;

  Image Image1;
  Label Label1;
  CommandButton Command1;

 protected:
  void Load() override;
};
