#include "tools/html_form.h"

#include "platform/system/files.h"
#include "platform/window/window_system.h"
#include "text/runtime_error.h"

namespace {

constexpr StringView kDefault = u"Default";

}  // namespace

bool IsDefaultPart(StringView file) { return file == kDefault || IsBlank(file); }

HTML::HTML(WindowSystem& windows, Messages& messages)
    : SettingsFormOf(windows, messages, {Text1, Text2, Check1, Check2}),
      commonDialog1_(windows.CreateCommonDialog()),
      CommonDialog1(*commonDialog1_) {
  Caption = u"Convert to HTML Settings";
  Label1.Caption =
      u"If you have a website and you want to convert using specific header/footer information, "
      u"copy your header code into an ASCII text file and your footer code into an ASCII text file "
      u"and use those files below.  When the text is converted, the default headers/footers will "
      u"be bypassed (except to set the title as the first line of the text) and your code will be "
      u"used for the headers and footers instead.";
  Label2.Caption = u"&Header File: ";
  Label3.Caption = u"&Footer File: ";
  Label4.Caption =
      u"The \"Use <BR> for every line\" option always puts a <BR> tag when it encounters a "
      u"carriage "
      u"return (on lines subsequent to the <P> tag).  This is most useful when converting poems or "
      u"lists of items.  Using this option will not harm the conversion of non-poems/lists.";
  Label1.WordWrap = Label4.WordWrap = true;
  for (TextBox* box : {&Text1, &Text2}) {
    box->OnClick = [box] { box->SelectAll(); };
    box->OnDblClick = [box] { box->SelLength = 0; };
  }
  Check1.Caption = u"&Use <BR> for every line";
  Check2.Caption = u"Don't &set a title";
  Wire(Command1, Command2);
  WireHelp(Command7, kHelpHtml);
  Command3.Caption = u"&Browse";
  Command3.OnClick = [this] { Browse(Text1); };
  Command4.Caption = u"B&rowse";
  Command4.OnClick = [this] { Browse(Text2); };
  Command5.Caption = u"Use &Default";
  Command5.OnClick = [this] { Text1.Text = String(kDefault); };
  Command6.Caption = u"Use D&efault";
  Command6.OnClick = [this] { Text2.Text = String(kDefault); };
  Command3.AccessibleName = u"Browse for the header file";
  Command4.AccessibleName = u"Browse for the footer file";
  Command5.AccessibleName = u"Use the default header";
  Command6.AccessibleName = u"Use the default footer";
  Use(HtmlSettings{});
  Columns = 80;
}

Layout HTML::Content() {
  return Column(
      {Label1, Grid(4, {Label2, Text1, Command3, Command5, Label3, Text2, Command4, Command6}),
       Label4, Check1, Check2, Row({Stretch(), Command1, Command2, Command7, Stretch()})});
}

void HTML::TakeDefaults(const SharedFields& fields) {
  if (!IsBlank(fields.DefaultHeaderFile)) Text1.Text = fields.DefaultHeaderFile;
  if (!IsBlank(fields.DefaultFooterFile)) Text2.Text = fields.DefaultFooterFile;
}

void HTML::Browse(TextBox& box) {
  CommonDialog1.DialogTitle = u"Browse";
  CommonDialog1.Filter =
      u"All Files (*.*)|*.*|Text Files (*.txt)|*.txt|HTML Files (*.html;*.htm)|*.html;*.htm";
  CommonDialog1.FilterIndex = 1;
  if (CommonDialog1.AskForFile()) box.Text = CommonDialog1.FileName;
}

bool HTML::CanRead(const TextBox& box, StringView complaint) {
  if (IsDefaultPart(box.Text.Get())) return true;
  try {
    TestReadable(box.Text);
    return true;
  } catch (const RuntimeError&) {
    return Refuse(complaint);
  }
}

bool HTML::Check() {
  return CanRead(Text1,
                 u"The filename for the header file is invalid OR the file cannot be accessed.") &&
         CanRead(Text2,
                 u"The filename for the footer file is invalid OR the file cannot be accessed.");
}
