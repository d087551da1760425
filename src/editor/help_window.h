#pragma once
// The program's own help: a list of topics and the page of one of them.

#include "editor/help_topics.h"
#include "platform/window/form.h"

class HelpWindow : public Form {
 public:
  explicit HelpWindow(WindowSystem& windows);
  Layout Content() override;

  // Adds a page that the program makes, or puts it in another one's place. `text` is as that of a
  // topic.
  void AddPage(int number, const String& text);
  // The page that the window shows; the first one for a number that is none.
  void Choose(int topic);

  Label Label1;
  ComboBox Combo1;  // titles
  TextBox Text1;    // the page
  CommandButton Command1;

 private:
  struct Page {
    int Number;
    String Text;
  };
  void ListPages();
  void ShowPage();

  // In the order of their numbers.
  std::vector<Page> pages_;
};
