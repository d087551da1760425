#include "editor/working.h"

Working::Working(WindowSystem& windows) : Form(windows) {
  Caption = u"Working...";
  Label1.Caption = u"Task in progress.  Please wait...";
  Columns = 40;
}

Layout Working::Content() {
  return Column({Stretch(), Row({Stretch(), Label1, Stretch()}), Stretch()});
}
