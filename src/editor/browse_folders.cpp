#include "editor/browse_folders.h"

#include "platform/system/files.h"
#include "text/runtime_error.h"

BrowseFolders::BrowseFolders(WindowSystem& windows, Messages& messages)
    : Form(windows), messages_(messages) {
  Caption = u"Browse";
  Command1.Caption = u"&OK";
  Command1.Default = true;
  Command1.OnClick = [this] {
    // One click on a folder is enough to mean it.
    ChosenFolder = Dir1.Highlighted();
    Unload();
  };
  Command2.Caption = u"C&ancel";
  Command2.Cancel = true;
  Command2.OnClick = [this] {
    ChosenFolder.clear();
    Unload();
  };
  Drive1.AccessibleName = u"Drive";
  Dir1.AccessibleName = u"Folder";
  Dir1.OnChange = [this] { FolderChanged(); };
  Drive1.OnChange = [this] { DriveChanged(); };
  Columns = 50;
  Lines = 18;
}

Layout BrowseFolders::Content() {
  return Column({Drive1, Dir1, Row({Stretch(), Command1, Command2})});
}

void BrowseFolders::Load() {
  const String wanted(Trim(StartFolder));
  for (const String& start : {wanted, CurrentFolder(), String(u"/")}) {
    if (start.empty()) continue;
    try {
      Dir1.Go(AbsolutePath(start));
      break;
    } catch (const RuntimeError&) {
      // A folder that has gone: the next one.
    }
  }
  Drive1.Refresh();
  FolderChanged();
}

void BrowseFolders::FolderChanged() {
  ChosenFolder = Dir1.Path;
  // First, so that the volume shown does not send Dir1 to its top.
  drive_ = Drive1.VolumeOf(Dir1.Path);
  Drive1.Drive = drive_;
}

void BrowseFolders::DriveChanged() {
  if (Drive1.Drive == drive_) return;
  try {
    Dir1.Go(Drive1.Drive);
  } catch (const RuntimeError&) {
    messages_.Notice(u" There is no disk in the drive / device unavailable.");
    Drive1.Drive = drive_;
  }
}
