#include "batch/mass_convert4.h"

#include "batch/history_record.h"
#include "batch/run_head.h"

MassConvert4::MassConvert4(WindowSystem& windows, Messages& messages)
    : Form(windows), messages_(messages) {
  Caption = u"Multiple File Flurn";
  Label2.Caption = u"Step 4: Final Information";
  Label2.Heading = true;
  Label3.Caption =
      u"WordFlurn is now ready to alter all of the files you specified with the tools you "
      u"specified.  In the case of HTML conversion, the converted files will be renamed with a "
      u"\".html\" extension if using \"Convert TO HTML\" and \".txt\" if using \"Convert FROM "
      u"HTML\" in the same folder/directory in which they are located.";
  Label5.Caption =
      u"The flurning process may take anywhere from 1 second to several minutes depending upon the "
      u"speed of your computer and the number of tools and files used.";
  Label4.Caption =
      u"Checking the \"Super Fast Flurn\" option below is not recommended unless you are positive "
      u"that you will NOT want to cancel the flurn operation once it has started.";
  Label7.Caption =
      u"You can name this operation (optional) to make it easier to identify if you wish to undo "
      u"it later.";
  for (Label* label : {&Label3, &Label4, &Label5, &Label7}) label->WordWrap = true;
  Check1.Caption = u"&Super Fast Flurn";
  Label8.Caption = u"Name:";
  Command1.Caption = u"&Start";
  Command1.Default = true;
  Command1.OnClick = [this] { Start(); };
  Command2.Caption = u"C&ancel";
  Command2.Cancel = true;
  Command2.OnClick = [this] { Cancel(); };
  Columns = 80;
}

Layout MassConvert4::Content() {
  return Column({Label2, Label3, Label5, Label4, Check1, Label7, Row({Label8, txtMFFName}),
                 Stretch(), Row({Stretch(), Command1, Command2, Stretch()})});
}

StringView MassConvert4::Complaint() const {
  const StringView name = Trim(txtMFFName.Text.Get());
  if (!name.empty() && name.size() < kShortestRunName)
    return u"Error: The MFF name must contain at least 4 characters.";
  if (!IsRecordable(name))
    return u"Error: The MFF name must not contain \"<TO>\" or \"<REMOVEFILE>\".";
  return {};
}

void MassConvert4::Start() {
  if (const StringView complaint = Complaint(); !complaint.empty()) {
    messages_.Notice(complaint);
    return txtMFFName.SetFocus();
  }
  StartClicked = true;
  WizardCancelled = false;
  Hide();
}

void MassConvert4::Cancel() {
  txtMFFName.Text = String();
  WizardCancelled = true;
  Hide();
}
