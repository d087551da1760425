#include "batch/working2.h"

String Grouped(std::size_t number) {
  constexpr std::size_t kGroup = 3;
  const String digits = Str(static_cast<long long>(number));
  String grouped;
  for (std::size_t at = 0; at < digits.size(); ++at) {
    if (at > 0 && (digits.size() - at) % kGroup == 0) grouped += u',';
    grouped += digits[at];
  }
  return grouped;
}

String FileOf(std::size_t file, std::size_t of) {
  return u"file " + Grouped(file) + u" of " + Grouped(of);
}

Working2::Working2(WindowSystem& windows) : Form(windows) {
  Caption = u"Working...";
  Label1.Caption = u"Multiple File Flurn in progress.  Please wait...";
  Label2.Caption = u"Status:";
  Label3.WordWrap = true;
  Command1.Caption = u"C&ancel";
  Command1.Cancel = true;
  Command1.OnClick = [this] { CancelClicked = true; };
  Columns = 70;
  // Paths of any usual length leave the window as it is.
  Lines = 11;
}

Layout Working2::Content() {
  return Column({Label1, Row({Label2, Label3}), Stretch(), Row({Progress, Label4}),
                 Row({Stretch(), Command1, Stretch()})});
}

void Working2::Load() {
  CancelClicked = false;
  Label3.Caption = String();
  Label4.Caption = String();
  Progress.Value = 0;
  Progress.Maximum = 0;
}

void Working2::ShowFile(std::size_t file, std::size_t of) {
  Label4.Caption = FileOf(file, of);
  Progress.Maximum = static_cast<int>(of);
  Progress.Value = static_cast<int>(file) - 1;
}
