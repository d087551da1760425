#include "editor/browse_folders.h"

#include "platform/files.h"
#include "platform/runtime_error.h"

BrowseFolders::BrowseFolders(WindowSystem& windows, Messages& messages)
    : Form(windows), messages_(messages) {
  Caption = u"Browse";
  Command1.Caption = u"&OK";
  Command1.Default = true;
  Command1.OnClick = [this] { Unload(); };
  Command2.Caption = u"C&ancel";
  Command2.Cancel = true;
  Command2.OnClick = [this] {
    ChosenFolder.clear();
    Unload();
  };
  Dir1.OnChange = [this] { ChosenFolder = Dir1.Path; };
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
  // Showing the volume that Dir1 is on must not send Dir1 to the volume's top.
  Drive1.OnChange = nullptr;
  Drive1.Refresh();
  Drive1.Drive = Dir1.Path;
  drive_ = Drive1.Drive;
  Drive1.OnChange = [this] { DriveChanged(); };
  ChosenFolder = Dir1.Path;
}

void BrowseFolders::DriveChanged() {
  if (Drive1.Drive == drive_) return;
  try {
    Dir1.Go(Drive1.Drive);
    drive_ = Drive1.Drive;
  } catch (const RuntimeError&) {
    messages_.Notice(u" There is no disk in the drive / device unavailable.");
    Drive1.Drive = drive_;
  }
}
