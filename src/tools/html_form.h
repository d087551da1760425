#pragma once
// Asks how a text becomes an HTML page. Its controls are the settings of Convert to HTML, whoever
// writes them.

#include <memory>

#include "editor/messages.h"
#include "platform/common_dialog.h"

class HTML : public Form {
 public:
  HTML(WindowSystem& windows, Messages& messages);
  Layout Content() override;
  void CloseByFrame() override { Command2.Click(); }
  // Goes on with the settings as they stand.
  String AnswerUnattended() override;

  // The user has refused; set while the window is away.
  bool Cancelled = false;

  Label Label1;
  Label Label2;
  Label Label3;
  Label Label4;
  TextBox Text1;    // header file, or "Default"
  TextBox Text2;    // footer file, or "Default"
  CheckBox Check1;  // 1 breaks every line
  CheckBox Check2;  // 1 sets no title
  CommandButton Command1;
  CommandButton Command2;
  CommandButton Command3;
  CommandButton Command4;
  CommandButton Command5;
  CommandButton Command6;

 private:
  void Browse(TextBox& box);
  bool CanRead(const TextBox& box, StringView complaint);
  void Ok();

  Messages& messages_;
  std::unique_ptr<CommonDialog> dialog_;
};

// Whether a header or footer is the program's own.
bool IsDefaultPart(StringView file);
