#include "editor/notice1.h"

#include "platform/window/window_system.h"

Notice1::Notice1(WindowSystem& windows) : Form(windows) {
  Caption = u"WordFlurn";
  Image1.Icon = u"information";
  Label1.WordWrap = true;
  Command1.Caption = u"&OK";
  Command1.Default = true;
  Command1.Cancel = true;
  Command1.OnClick = [this] { Unload(); };
}

Layout Notice1::Content() {
  return Column({Row({Image1, Label1}), Row({Stretch(), Command1, Stretch()})});
}

void Notice1::Load() {
  Label1.Caption = NoticeMessage;
  Windows().DoEvents();
}

String Notice1::AnswerUnattended() {
  Command1.Click();
  return NoticeMessage;
}
