#include "editor/find_panel.h"

#include "text/find_text.h"

FindPanel::FindPanel(RichTextBox& editor, Messages& messages)
    : editor_(editor), messages_(messages) {
  lblFindWhat.Caption = u"Fi&nd What:";
  cmdFind.Caption = u"F&ind Next";
  cmdFind.Default = true;
  cmdReturn.Caption = u"&Return";
  cmdReturn.Cancel = true;
  chkMatchCase.Caption = u"&Match case";
  chkWholeWord.Caption = u"Match &whole word only";
  txtFindText.OnChange = [this] { FindPos = 0; };
  cmdFind.OnClick = [this] { Find(); };
  cmdReturn.OnClick = [this] { Close(); };
  Show(false);
}

::Layout FindPanel::Layout() {
  return Row({lblFindWhat, txtFindText, cmdFind, cmdReturn, chkMatchCase, chkWholeWord});
}

void FindPanel::Show(bool visible) {
  for (Control* control : std::initializer_list<Control*>{&lblFindWhat, &txtFindText, &cmdFind,
                                                          &cmdReturn, &chkMatchCase, &chkWholeWord})
    control->Visible = visible;
}

void FindPanel::Open() {
  Show(true);
  txtFindText.SelectAll();
  txtFindText.SetFocus();
}

void FindPanel::Close() {
  Show(false);
  editor_.SetFocus();
}

void FindPanel::FindNext() {
  if (txtFindText.Text.Get().empty())
    Open();
  else
    Find();
}

void FindPanel::Find() {
  FindTextFromMain(FindPos);
  if (FoundPos) {
    FindPos = *FoundPos + 1;
    return;
  }
  messages_.Notice(FindPos == 0 ? u"Search text not found."
                                : u"There are no more instances of the search text.");
  editor_.SetSelLength(0);
}

void FindPanel::FindTextFromMain(std::size_t start) {
  const String& what = txtFindText.Text;
  const int options =
      (chkWholeWord.Value == 1 ? kWholeWord : 0) | (chkMatchCase.Value == 1 ? kMatchCase : 0);
  FoundPos = FindText(*editor_.SharedText(), what, start, options);
  if (!FoundPos) return;
  editor_.SetSelStart(*FoundPos);
  editor_.SetSelLength(what.size());
}

void FindPanel::StartAnew() {
  FindPos = 0;
  FoundPos.reset();
}
