#include "custom/cust_show_win_notice.h"

CustShowWinNotice::CustShowWinNotice(WindowSystem& windows) : Form(windows) {
  Caption = u"Multiple File Flurn ";
  Label1.WordWrap = true;
  Label2.Heading = true;
  Command1.Caption = u"&OK";
  Command1.Default = true;
  Command1.OnClick = [this] { Unload(); };
  Columns = 70;
}

Layout CustShowWinNotice::Content() {
  return Column({Label2, Label1, Row({Stretch(), Command1, Stretch()})});
}

void CustShowWinNotice::Load() {
  const String number = Str(ToolPass);
  Label2.Caption = u"Tool #" + number + u" Notice";
  Label1.Caption =
      u"The tool you have selected for Tool #" + number +
      u" is a custom tool, which is comprised of at least one other tool that you specified to "
      u"have a settings window shown to you when the custom tool is run.  Settings windows will "
      u"now be shown to you for any tools within this custom tool that are set to show a settings "
      u"window.  Simply choose your settings for the tool(s) just as you would when normally "
      u"running the custom tool.  You will only have to choose the settings once and it will then "
      u"be used for all of the files you have selected.";
}
