#pragma once
// Asks how a text becomes an HTML page. Its controls hold the settings of the next run from the
// menu.

#include <memory>

#include "platform/window/common_dialog.h"
#include "tools/settings_form.h"

class HTML : public SettingsFormOf<HtmlSettings> {
 public:
  HTML(WindowSystem& windows, Messages& messages);
  Layout Content() override;
  // The files that the options name.
  void TakeDefaults(const SharedFields& fields) override;

 private:
  std::unique_ptr<CommonDialog> commonDialog1_;

 public:
  CommonDialog& CommonDialog1;

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
  CommandButton Command7;

 protected:
  bool Check() override;

 private:
  void Browse(TextBox& box);
  bool CanRead(const TextBox& box, StringView complaint);
};

// Whether a header or footer is the program's own.
bool IsDefaultPart(StringView file);
