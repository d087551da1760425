#include "editor/help_window.h"

#include "editor/help_topics.h"

namespace {

constexpr char16_t kLineEnd = u'\n';

StringView TitleOf(const HelpTopic& topic) {
  return topic.Text.substr(0, topic.Text.find(kLineEnd));
}

// The page without its title, with the line ends of a text box.
String PageOf(const HelpTopic& topic) {
  String page;
  for (const char16_t c : topic.Text.substr(TitleOf(topic).size() + 2)) {
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
  for (const HelpTopic& topic : HelpTopics()) Combo1.AddItem(String(TitleOf(topic)));
  Combo1.OnClick = [this] { ShowPage(); };
  Text1.MultiLine = true;
  Text1.Locked = true;
  Text1.AccessibleName = u"Help text";
  Command1.Caption = u"&Close";
  Command1.Cancel = true;
  Command1.OnClick = [this] { Unload(); };
  Columns = 80;
  Lines = 28;
  Choose(kHelpContents);
}

Layout HelpWindow::Content() {
  return Column({Row({Label1, Combo1}), Text1, Row({Stretch(), Command1, Stretch()})});
}

void HelpWindow::Choose(int topic) {
  const auto topics = HelpTopics();
  int index = 0;
  for (std::size_t i = 0; i < topics.size(); ++i) {
    if (topics[i].Number == topic) index = static_cast<int>(i);
  }
  Combo1.ListIndex = index;
  ShowPage();
}

void HelpWindow::ShowPage() {
  const int index = Combo1.ListIndex;
  if (index >= 0) Text1.Text = PageOf(HelpTopics()[static_cast<std::size_t>(index)]);
}
