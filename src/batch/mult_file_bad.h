#pragma once
// The names of a list file that can't be opened.

#include "editor/messages.h"

class MultFileBad : public Form {
 public:
  explicit MultFileBad(WindowSystem& windows);
  Layout Content() override;
  void CloseByFrame() override { Command2.Click(); }

  // Parted by CR LF. Set it before the window is shown.
  String BadFileNames;
  // Takes the names out of the list file.
  std::function<void()> OnRemove;

  Label Label1;
  TextBox Text1;
  CommandButton Command1;
  CommandButton Command2;
  // Of a run that nobody attends, which never shows the window.
  CommandButton Command3;

 protected:
  void Load() override;
};
