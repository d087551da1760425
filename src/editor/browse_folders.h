#pragma once
// Lets the user pick a folder.

#include "editor/messages.h"
#include "platform/window/file_lists.h"

class BrowseFolders : public Form {
 public:
  BrowseFolders(WindowSystem& windows, Messages& messages);
  Layout Content() override;
  void CloseByFrame() override { Command2.Click(); }

  // Where to start: what the caller's text box holds. Set it before the window is shown.
  String StartFolder;
  // The folder picked; empty after cancel.
  String ChosenFolder;

  DriveListBox Drive1;
  DirListBox Dir1;
  CommandButton Command1;
  CommandButton Command2;

 protected:
  void Load() override;

 private:
  void DriveChanged();
  // Chooses the folder that Dir1 is in, and shows the volume that it lies on.
  void FolderChanged();

  Messages& messages_;
  // The volume that Dir1 is on.
  String drive_;
};
