#include "tools/replace_found_num.h"

ReplaceFoundNum::ReplaceFoundNum(WindowSystem& windows) : Form(windows) {
  Caption = u"Search and Replace";
  Command1.Caption = u"&OK";
  Command1.Default = true;
  Command1.Cancel = true;
  Command1.OnClick = [this] { Unload(); };
}

Layout ReplaceFoundNum::Content() {
  return Column({Label1, Row({Stretch(), Command1, Stretch()})});
}

void ReplaceFoundNum::Load() {
  if (ReplaceCount == 0)
    Label1.Caption = u"The search text was not found.";
  else if (ReplaceCount == 1)
    Label1.Caption = u"The search text was found and replaced 1 time.";
  else
    Label1.Caption = u"The search text was found and replaced " + Str(ReplaceCount) + u" times.";
}
