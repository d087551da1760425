#include "editor/help_window.h"

#include <algorithm>

namespace {

constexpr char16_t kLineEnd = u'\n';

StringView TitleOf(StringView text) { return text.substr(0, text.find(kLineEnd)); }

// The page without its title, with the line ends of a text box.
String PageOf(StringView text) {
  String page;
  for (const char16_t c : text.substr(TitleOf(text).size() + 2)) {
    if (c == kLineEnd)
      page += kCrLf;
    else
      page += c;
  }
  return page;
}

}  // namespace

HelpWindow::HelpWindow(WindowSystem& windows) : Form(windows) {
  Caption = u"WordFlurn Help";
  Label1.Caption = u"&Topic:";
  for (const HelpTopic& topic : HelpTopics()) pages_.push_back({topic.Number, String(topic.Text)});
  Combo1.OnClick = [this] { ShowPage(); };
  Text1.MultiLine = true;
  Text1.Locked = true;
  Text1.AccessibleName = u"Help text";
  Command1.Caption = u"&Close";
  Command1.Cancel = true;
  Command1.OnClick = [this] { Unload(); };
  Columns = 80;
  Lines = 28;
  ListPages();
}

Layout HelpWindow::Content() {
  return Column({Row({Label1, Combo1}), Text1, Row({Stretch(), Command1, Stretch()})});
}

void HelpWindow::AddPage(int number, const String& text) {
  std::erase_if(pages_, [number](const Page& page) { return page.Number == number; });
  const auto behind = std::find_if(pages_.begin(), pages_.end(),
                                   [number](const Page& page) { return page.Number > number; });
  pages_.insert(behind, {number, text});
  ListPages();
}

void HelpWindow::ListPages() {
  Combo1.Clear();
  for (const Page& page : pages_) Combo1.AddItem(String(TitleOf(page.Text)));
  Choose(kHelpContents);
}

void HelpWindow::Choose(int topic) {
  int index = 0;
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    if (pages_[i].Number == topic) index = static_cast<int>(i);
  }
  Combo1.ListIndex = index;
  ShowPage();
}

void HelpWindow::ShowPage() {
  const int index = Combo1.ListIndex;
  if (index >= 0) Text1.Text = PageOf(pages_[static_cast<std::size_t>(index)].Text);
}
