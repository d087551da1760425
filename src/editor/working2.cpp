#include "editor/working2.h"

Working2::Working2(WindowSystem& windows) : Form(windows) {
  Caption = u"Working...";
  Label1.Caption = u"Multiple File Flurn in progress.  Please wait...";
  Label2.Caption = u"Status:";
  Label3.WordWrap = true;
  Command1.Caption = u"C&ancel";
  Command1.Cancel = true;
  Command1.OnClick = [this] { CancelClicked = true; };
  Columns = 60;
}

Layout Working2::Content() {
  return Column({Label1, Row({Label2, Label3, Stretch()}), Row({Stretch(), Command1, Stretch()})});
}
