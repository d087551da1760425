// What surrounds the run of a tool: the caret and the view, the guards, the clipboard's job.

#include "core/unattended_run.h"
#include "support/app_fixture.h"

namespace {

class ToolRunTest : public AppTest {
 protected:
  RichTextBox& Box() { return App().RichTextBox1; }
};

TEST_F(ToolRunTest, CaretAndViewStayWhereTheyAre) {
  const struct {
    const char* Name;
    StringView Tool, Text;
    std::size_t SelStart, SelLength, Top;
    TextPlace Caret;
    std::size_t SelLengthAfter, TopAfter;
  } cases[] = {
      {"as many lines", u"All Upper Case", u"a\r\nb\r\ncd", 7, 0, 2, {3, 2}, 0, 2},
      {"a shorter line",
       u"Remove ALL Leading Spaces",
       u"a\r\n   b\r\nc\r\n",
       7,
       0,
       1,
       {2, 2},
       0,
       1},
      {"twice as many", u"Add Double Spacing", u"a\r\nb\r\nc\r\nd\r\n", 6, 0, 2, {5, 1}, 0, 4},
      {"fewer",
       u"Remove Double Spacing",
       u"a\r\n\r\nb\r\n\r\nc\r\n\r\nd\r\n",
       10,
       0,
       4,
       {3, 1},
       0,
       2},
      {"nothing to do", u"All Lower Case", u"a\r\nb\r\nc", 4, 0, 1, {2, 2}, 0, 1},
      {"nothing to do on a selection that stands twice",
       u"All Lower Case",
       u"ab\r\nab",
       4,
       2,
       1,
       {2, 3},
       2,
       1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    Start();
    Box().SetText(c.Text);
    Box().SetSelStart(c.SelStart);
    Box().SetSelLength(c.SelLength);
    Box().SetFirstVisibleLine(c.Top);
    App().Menu.ToolMenu(c.Tool)->Click();
    EXPECT_EQ(Box().Caret(), c.Caret) << Box().Caret().Line << ' ' << Box().Caret().Column;
    EXPECT_EQ(Box().SelLength(), c.SelLengthAfter);
    EXPECT_EQ(Box().FirstVisibleLine(), c.TopAfter);
  }
}

TEST_F(ToolRunTest, ChoicesOfTheStatusBarAreNotForLockedText) {
  Start();
  for (const bool locked : {true, false}) {
    Box().Locked = locked;
    for (const MenuItem* choice : App().Status.Choices()) EXPECT_EQ(choice->Enabled, !locked);
  }
}

TEST_F(ToolRunTest, EncryptedTextThatAKeyPastesLocks) {
  Start();
  Open(Files.Put(u"f.txt", "x"));
  Windows.Clipboard().SetText(u"**This file has been encrypted with WordFlurn**");
  KeyEvent key;
  key.Key = 'V';
  key.Control = true;
  Box().OnKeyDown(key);
  Box().SetSelText(Windows.Clipboard().GetText());
  Box().OnPaste();
  EXPECT_TRUE(Box().Locked);
  EXPECT_EQ(App().Caption.Get(), u"WordFlurn 2.0 (encrypted) - f.txt");
  Box().OnKeyDown(key = {.Key = 'Z', .Control = true});
  EXPECT_TRUE(Contains(Box().Text(), u"encrypted"));
}

TEST_F(ToolRunTest, NamesThatAreNotOpenedAreTold) {
  Session session(Windows, Data.Path(), Files.Put(u"a", "a"));
  session.NotOpened = {u"b", u"c d"};
  ChangeCase app(session);
  app.Show();
  EXPECT_EQ(app.Status.Bar.Message.Get(), u"One document at a time. Not opened: b c d");
}

TEST_F(ToolRunTest, CleaningTheClipboardNeverWaits) {
  const struct {
    const char* Name;
    String Text;
    String After;
    int Status;
  } cases[] = {
      {"a mail", u"> a\r\n", u"a \r\n", 0},
      {"no text", u"", u"", 0},
      {"blank", u"  ", u"  ", 0},
      {"too many lines", String(60002, u'\r'), String(60002, u'\r'), 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    Windows.Clipboard().Clear();
    if (!c.Text.empty()) Windows.Clipboard().SetRawText(c.Text);
    Session session(Windows, Data.Path(), u"/EMAILSTD");
    EXPECT_EQ(RunUnattended(session, {}), c.Status);
    EXPECT_EQ(Windows.Clipboard().GetRawText(), c.After);
    EXPECT_TRUE(Windows.Questions.empty());
  }
}

}  // namespace
