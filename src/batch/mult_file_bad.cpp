#include "batch/mult_file_bad.h"

MultFileBad::MultFileBad(WindowSystem& windows) : Form(windows) {
  Caption = u"Files Not Found";
  Label1.Caption =
      u"The following file(s) in the file list could not be opened and therefore probably no "
      u"longer exist.  They have not been added to the list.  If you would also like to remove "
      u"them from the actual file list file so that WordFlurn will never attempt to load them "
      u"again when loading files from this file, then click the related button below.";
  Label1.WordWrap = true;
  Text1.MultiLine = true;
  Text1.Locked = true;
  Text1.AccessibleName = u"Files not found";
  Command1.Caption = u"&Remove file(s) from file";
  Command1.OnClick = [this] { OnRemove(); };
  Command2.Caption = u"&OK";
  Command2.Default = Command2.Cancel = true;
  Command2.OnClick = [this] { Unload(); };
  Command3.Caption = u"Cancel Multiple File Flurn";
  Command3.Enabled = Command3.Visible = false;
  Columns = 80;
  Lines = 20;
}

Layout MultFileBad::Content() {
  return Column({Label1, Text1, Row({Stretch(), Command1, Command2, Command3, Stretch()})});
}

void MultFileBad::Load() {
  Text1.Text = BadFileNames;
  Text1.SelStart = 0;
}
