// Clipboard commands, keys, Find.

#include "support/app_fixture.h"
#include "text/find_text.h"

namespace {

class EditingTest : public AppTest {
 protected:
  void SetUp() override { Start(); }
  RichTextBox& Box() { return App().RichTextBox1; }
  bool Press(int key, bool control = false) {
    KeyEvent event;
    event.Key = key;
    event.Control = control;
    App().KeyDown(event);
    return event.Handled;
  }
};

TEST_F(EditingTest, ClipboardCommandsWorkOnTheControlWithTheKeyboard) {
  ::Clipboard& clipboard = Windows.Clipboard();
  Box().SetText(u"one two");
  Box().SetSelStart(4);
  Box().SetSelLength(3);
  App().Menu.CopyMenu.Click();
  EXPECT_EQ(clipboard.GetText(), u"two");
  App().Menu.CutMenu.Click();
  EXPECT_EQ(Box().Text(), u"one ");
  App().Menu.PasteMenu.Click();
  App().Command8.Click();
  EXPECT_EQ(Box().Text(), u"one twotwo");
  App().Menu.CopyAllMenu.Click();
  EXPECT_EQ(clipboard.GetText(), u"one twotwo");
  EXPECT_EQ(Box().SelText(), u"one twotwo");
  App().Menu.DeleteMenu.Click();
  EXPECT_EQ(Box().Text(), u"");

  App().Menu.FindMenu.Click();
  TextBox& find = App().Find.txtFindText;
  App().ActiveControl = &find;
  find.Text = u"needle";
  find.SelStart = 0;
  find.SelLength = 4;
  App().Menu.CutMenu.Click();
  EXPECT_EQ(find.Text.Get(), u"le");
  App().Menu.PasteMenu.Click();
  App().Menu.PasteMenu.Click();
  EXPECT_EQ(find.Text.Get(), u"needneedle");
}

TEST_F(EditingTest, EncryptedTextRefusesWithTheWordsOfTheCommand) {
  const StringView editing =
      u"This text has been encrypted and no editing tasks may be done until after it is decrypted.";
  const StringView paste =
      u"This text has been encrypted and no editing may be done until after it is decrypted.";
  struct Case {
    std::function<void(ChangeCase&)> Act;
    StringView Message;
  };
  const Case cases[] = {
      {[](ChangeCase& app) { app.Menu.CutMenu.Click(); }, editing},
      {[](ChangeCase& app) { app.Menu.CopyMenu.Click(); }, editing},
      {[](ChangeCase& app) { app.Menu.CopyAllMenu.Click(); }, editing},
      {[](ChangeCase& app) { app.Command9.Click(); }, editing},
      {[](ChangeCase& app) { app.Menu.DeleteMenu.Click(); }, editing},
      {[](ChangeCase& app) { app.Menu.PasteMenu.Click(); }, paste},
      {[](ChangeCase& app) { app.Command8.Click(); }, paste},
  };
  Box().SetText(u"secret");
  Box().SetSelLength(6);
  Box().Locked = true;
  Windows.Clipboard().SetText(u"kept");
  for (const Case& c : cases) {
    Windows.Notices.clear();
    c.Act(App());
    EXPECT_EQ(Windows.Notices, std::vector{String(c.Message)});
    EXPECT_EQ(Box().Text(), u"secret");
    EXPECT_EQ(Windows.Clipboard().GetText(), u"kept");
  }
}

TEST_F(EditingTest, PastedMarkerLocks) {
  const String file = Files.Put(u"f.txt", "x");
  Open(file);
  Windows.Clipboard().SetText(u"**This file has been encrypted with WordFlurn 2.0**");
  App().Menu.PasteMenu.Click();
  EXPECT_TRUE(Box().Locked);
  EXPECT_EQ(App().Caption.Get(), u"WordFlurn 2.0 (encrypted) - f.txt");
  EXPECT_FALSE(App().UndoEdit.CanUndo());
}

TEST_F(EditingTest, KeyPasteLeavesPlainTextOnTheClipboard) {
  const auto pasteKey = [this] {
    KeyEvent key;
    key.Key = 'V';
    key.Control = true;
    Box().OnKeyDown(key);
    return key.Handled;
  };
  ::Clipboard& clipboard = Windows.Clipboard();
  clipboard.SetText(u"one");
  EXPECT_FALSE(pasteKey());
  // Within the four seconds a further paste does not touch the clipboard.
  clipboard.SetText(u"two");
  pasteKey();
  EXPECT_EQ(clipboard.GetText(), u"two");
  Windows.Advance(3999);
  EXPECT_EQ(clipboard.GetText(), u"two");
  Windows.Advance(1);
  EXPECT_EQ(clipboard.GetText(), u"one");
}

TEST_F(EditingTest, KeysRunTheirCommands) {
  const String file = Files.Put(u"f.txt", "text");
  Windows.ChosenFile = file;
  EXPECT_TRUE(Press('O', true));
  EXPECT_EQ(Box().Text(), u"text");
  EXPECT_FALSE(Press(kKeyF1 + 10));  // F11
  EXPECT_EQ(Windows.Clipboard().GetText(), u"text");
  EXPECT_FALSE(Press(kKeyF1 + 11));  // F12
  EXPECT_TRUE(App().Messages.HelpWindow.Visible);
  EXPECT_FALSE(Press(kKeyF1 + 8));  // F9
  EXPECT_FALSE(App().Menu.HorizWordWrapMenu.Checked);
  EXPECT_TRUE(Press('F', true));
  EXPECT_TRUE(App().Find.IsOpen());
  EXPECT_TRUE(Press('F', true));
  EXPECT_FALSE(App().Find.IsOpen());
  Box().SetText(u"changed");
  EXPECT_TRUE(Press('S', true));
  EXPECT_EQ(BytesOf(file), "changed");
  // Keys of the desktop, and characters that are typed with Ctrl and Alt.
  for (const auto& [code, control, alt] :
       {std::tuple(kKeyF1 + 8, false, true), std::tuple(kKeyF1 + 8, true, false),
        std::tuple(int{'N'}, true, true)}) {
    KeyEvent key;
    key.Key = code;
    key.Control = control;
    key.Alt = alt;
    App().KeyDown(key);
    EXPECT_FALSE(key.Handled);
    EXPECT_FALSE(App().Menu.HorizWordWrapMenu.Checked);
    EXPECT_EQ(Box().Text(), u"changed");
  }
  App().Fields.ToolBusy = true;
  EXPECT_FALSE(Press('N', true));
  EXPECT_EQ(Box().Text(), u"changed");
  App().Fields.ToolBusy = false;
  EXPECT_TRUE(Press('N', true));
  EXPECT_EQ(Box().Text(), u"");
  EXPECT_FALSE(Press('A'));
}

TEST_F(EditingTest, FindGoesThroughTheHits) {
  Box().SetText(u"One two one\r\ntwo ONE");
  EXPECT_TRUE(Press('T', true));  // opens the panel; nothing to search for
  EXPECT_TRUE(App().Find.IsOpen());
  EXPECT_EQ(Windows.Notices, std::vector{String(u"Search text not found.")});
  Windows.Notices.clear();
  App().Find.txtFindText.Text = u"one";
  App().ActiveControl = &App().Find.txtFindText;
  for (const std::size_t hit : {0u, 8u, 17u}) {
    EXPECT_TRUE(Press(kKeyReturn));
    EXPECT_EQ(Box().SelStart(), hit);
    EXPECT_EQ(Box().SelLength(), 3u);
  }
  App().Find.cmdFind.Click();
  EXPECT_EQ(Windows.Notices,
            std::vector{String(u"There are no more instances of the search text.")});
  EXPECT_EQ(Box().SelLength(), 0u);
  App().Find.txtFindText.Text = u"ONE";
  App().Find.chkMatchCase.Click();
  App().Menu.FindNextMenu.Click();
  EXPECT_EQ(Box().SelStart(), 17u);
  EXPECT_TRUE(Press(kKeyEscape));
  EXPECT_FALSE(App().Find.IsOpen());
  EXPECT_EQ(App().Find.FindPos, 18u);
}

TEST(FindText, Options) {
  struct Case {
    StringView Text, What;
    std::size_t Start;
    int Options;
    std::optional<std::size_t> Hit;
  };
  const Case cases[] = {
      {u"abc", u"", 0, 0, std::nullopt},
      {u"abcabc", u"C", 0, 0, 2},
      {u"abcabc", u"C", 0, kMatchCase, std::nullopt},
      {u"abcabc", u"a", 1, kMatchCase, 3},
      {u"abc", u"a", 9, 0, std::nullopt},
      {u"concat cat", u"cat", 0, kWholeWord, 7},
      {u"cat_ cat1 cat", u"cat", 0, kWholeWord, 10},
      {u"\u0436cat cat\u4E00 (cat)", u"cat", 0, kWholeWord, 11},
      {u"\xD835\xDC00"
       u"cat cat\xD83D\xDE00",
       u"cat", 0, kWholeWord, 6},
      {u"\u03A3\u03C3\u03C2", u"\u03C2\u03C2", 0, 0, 0},
      {u"\xD801\xDC28", u"\xD801\xDC00", 0, 0, 0},
      {u"a\r\nb", u"\r\n", 0, 0, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(ToUtf8(c.Text) + " / " + ToUtf8(c.What));
    EXPECT_EQ(FindText(c.Text, c.What, c.Start, c.Options), c.Hit);
  }
}

// In any case the text is folded in pieces; hits lie in them and across their borders.
TEST(FindText, HitsInALongTextInAnyCase) {
  String text(300'000, u'x');
  const std::size_t places[] = {0, 65'530, 65'536, 131'070, 196'700, 299'993};
  for (const std::size_t place : places) text.replace(place, 4, u"N\xD801\xDC28L");
  std::vector<std::size_t> hits;
  std::size_t start = 0;
  while (const auto hit = FindText(text, u"n\xD801\xDC00l", start, 0)) {
    hits.push_back(*hit);
    start = *hit + 1;
  }
  EXPECT_EQ(hits, std::vector<std::size_t>(std::begin(places), std::end(places)));
}

TEST_F(EditingTest, CommandThatFailsLeavesTheKeysAlive) {
  App().Menu.FindMenu.OnClick = [] { throw std::bad_alloc(); };
  KeyEvent key;
  key.Key = 'F';
  key.Control = true;
  EXPECT_THROW(App().KeyDown(key), std::bad_alloc);
  EXPECT_FALSE(App().Fields.ToolBusy);
}

}  // namespace
