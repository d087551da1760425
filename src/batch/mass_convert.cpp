#include "batch/mass_convert.h"

#include "editor/help_topics.h"

MassConvert::MassConvert(WindowSystem& windows, Messages& messages) : Form(windows) {
  Caption = u"Multiple File Flurn";
  Label3.Caption = u"Step 1: Introduction";
  Label3.Heading = true;
  Label2.Caption =
      u"This 4-step wizard allows you to alter multiple files at the same time, without having to "
      u"open and change each file one by one, which can be a tedious task with large numbers of "
      u"files.  ";
  Label5.Caption =
      u"To do this, you must select the files to alter and the tool(s) you want to use on each "
      u"file.  Step 2 is the file selecting step and Step 3 is the tool selecting step.  For "
      u"tools, you can select up to 3 tools to use on each file. For instance if you wanted to "
      u"convert your files to lower case, you would select \"Convert to Lower Case\" for tool #1.  "
      u"If you also wanted to take those converted files and convert them to HTML, you would "
      u"select \"Convert to HTML\" for tool #2.  The final result in this example will be that "
      u"each file is in lower case and in HTML.";
  Label4.Caption =
      u"To continue to Step 2 and select the files to flurn, click the \"Next\" button below.";
  for (Label* label : {&Label2, &Label4, &Label5}) label->WordWrap = true;
  Command1.Caption = u"&Next";
  Command1.Default = true;
  Command1.OnClick = [this] {
    Hide();
    OnNext();
  };
  Command2.Caption = u"C&ancel";
  Command2.Cancel = true;
  Command2.OnClick = [this] { Hide(); };
  Command3.Caption = u"Help!";
  Command3.OnClick = [&messages] { messages.Help(kHelpBatch); };
  Columns = 80;
}

Layout MassConvert::Content() {
  return Column({Label3, Label2, Label5, Label4, Stretch(),
                 Row({Stretch(), Command1, Command2, Command3, Stretch()})});
}
