#include "tools/search_replace_form.h"

namespace {

constexpr StringView kNoCodes = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ<>,*;/.{}[]!@#$%^&*():?|\\+-=~";
// Where alternatives are parted by "<OR>".
constexpr StringView kNoCodesButOr = u"ABCDEFGHIJKLMNPQSTUVWXYZ,*;/.{}[]!@#$%^&*():?|\\+-=~";

constexpr StringView kNotANumber =
    u"Error: Character other than number found.  When searching/replacing by ASCII codes, you can "
    u"only have ASCII codes (numbers) separated by spaces in the search and replace fields.";
constexpr StringView kReturnFound =
    u"Error: Carriage Return found.  When searching/replacing by ASCII codes, you can only type "
    u"on the 1st line - don't press the Enter key - put all the ASCII codes on the 1st line "
    u"separated by spaces.";
constexpr StringView kNothingTyped = u"Error: You have not typed anything to search for.";

// What is wrong with the lists of codes; empty when they will do.
StringView CheckCodes(const String& search, const String& replacement) {
  const StringView refused = Contains(search, u"<OR>") ? kNoCodesButOr : kNoCodes;
  for (const char16_t c : search + replacement) {
    if (c == kCr) return kReturnFound;
    if (refused.find(UCase(c)) != StringView::npos) return kNotANumber;
  }
  return {};
}

}  // namespace

SearchReplaceForm::SearchReplaceForm(WindowSystem& windows, Messages& messages)
    : SettingsFormOf(windows, messages, {Text1, Text2, Check1, Check2, Check3}) {
  Caption = u"Search and Replace";
  Label1.Caption = u"Search &for:";
  Label2.Caption = u"&Replace With:";
  const auto wire = [](TextBox& box, bool& firstClick) {
    box.MultiLine = true;
    box.OnClick = [&box, &firstClick] {
      if (firstClick) box.SelectAll();
      firstClick = false;
    };
  };
  wire(Text1, FirstClickText1);
  wire(Text2, FirstClickText2);
  Check1.Caption = u"&Search and Replace by ASCII codes instead of text";
  Check2.Caption = u"Match &whole word(s) only";
  Check3.Caption = u"Match &case";
  Wire(Command1, Command2);
  WireHelp(Command3, kHelpSearchReplace);
  Columns = 60;
  Lines = 20;
}

Layout SearchReplaceForm::Content() {
  return Column({Label1, Text1, Label2, Text2, Check1, Check2, Check3,
                 Row({Stretch(), Command1, Command2, Command3, Stretch()})});
}

bool SearchReplaceForm::Check() {
  if (Check1.Value == 1) {
    if (const StringView error = CheckCodes(Text1.Text, Text2.Text); !error.empty())
      return Refuse(error);
  }
  return !IsBlank(Text1.Text.Get()) || Refuse(kNothingTyped);
}

void SearchReplaceForm::Close(bool cancelled) {
  FirstClickText1 = FirstClickText2 = true;
  SettingsForm::Close(cancelled);
}
