// Clipboard commands, keys, Find.

#include "support/app_fixture.h"
#include "text/find_text.h"

namespace {

class EditingTest : public AppTest {
 protected:
  void SetUp() override { Start(); }
  RichTextBox& Box() { return App().RichTextBox1; }
  bool Press(int key, bool control = false) {
    KeyEvent event{.Key = key, .Control = control};
    App().KeyDown(event);
    return event.Handled;
  }
};

TEST_F(EditingTest, ClipboardCommands) {
  enum Place { kEditor, kFindBox };
  constexpr std::size_t kAll = 99;
  MainMenu& menu = App().Menu;
  const auto click = [](MenuItem& item) { return [&item] { item.Click(); }; };
  const auto cutByKey = [this] { EXPECT_TRUE(Press('X', true)); };
  const struct {
    const char* Name;
    std::function<void()> Act;
    Place Where;
    StringView Text;
    std::size_t Start, Length;
    StringView Clipboard, TextAfter, ClipboardAfter;
  } cases[] = {
      {"copy", click(menu.CopyMenu), kEditor, u"a b", 2, 1, u"old", u"a b", u"b"},
      {"copy of nothing", click(menu.CopyMenu), kEditor, u"a b", 2, 0, u"old", u"a b", u"old"},
      {"cut", click(menu.CutMenu), kEditor, u"a b", 0, 2, u"old", u"b", u"a "},
      {"cut of nothing", click(menu.CutMenu), kEditor, u"a b", 1, 0, u"old", u"a b", u"old"},
      {"cut by key", cutByKey, kEditor, u"a b", 0, 2, u"old", u"b", u"a "},
      {"cut of nothing by key", cutByKey, kEditor, u"a b", 1, 0, u"old", u"a b", u"old"},
      {"paste", click(menu.PasteMenu), kEditor, u"a b", 0, 1, u"new", u"new b", u"new"},
      {"paste by button", [this] { App().Command8.Click(); }, kEditor, u"a", 1, 0, u"b", u"ab",
       u"b"},
      {"paste of nothing", click(menu.PasteMenu), kEditor, u"a b", 0, 3, u"", u"a b", u""},
      {"copy all", click(menu.CopyAllMenu), kEditor, u"a b", 1, 1, u"old", u"a b", u"a b"},
      {"delete", click(menu.DeleteMenu), kEditor, u"a b", 0, kAll, u"old", u"", u"old"},
      {"copy in the box", click(menu.CopyMenu), kFindBox, u"find", 1, 2, u"old", u"find", u"in"},
      {"cut in the box", click(menu.CutMenu), kFindBox, u"find", 0, 3, u"old", u"d", u"fin"},
      {"cut in the box by key", cutByKey, kFindBox, u"find", 1, 3, u"old", u"f", u"ind"},
      {"paste in the box", click(menu.PasteMenu), kFindBox, u"find", 4, 0, u"er", u"finder", u"er"},
      {"delete in the box", click(menu.DeleteMenu), kFindBox, u"find", 2, 9, u"old", u"fi", u"old"},
      {"copy all from the box", click(menu.CopyAllMenu), kFindBox, u"find", 0, 4, u"", u"find",
       u"text"},
  };
  TextBox& box = App().Find.txtFindText;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    Windows.Clipboard().SetText(c.Clipboard);
    Box().SetText(u"text");
    if (c.Where == kEditor) {
      App().ActiveControl = &Box();
      Box().SetText(c.Text);
      Box().SetSelStart(c.Start);
      Box().SetSelLength(c.Length);
    } else {
      App().ActiveControl = &box;
      box.Text = String(c.Text);
      box.SelStart = static_cast<int>(c.Start);
      box.SelLength = static_cast<int>(c.Length);
    }
    c.Act();
    EXPECT_EQ(c.Where == kEditor ? Box().Text() : box.Text.Get(), c.TextAfter);
    EXPECT_EQ(Windows.Clipboard().GetText(), c.ClipboardAfter);
    EXPECT_TRUE(c.Where == kEditor || Box().Text() == u"text");

    // Encrypted text refuses, and nothing has changed.
    Box().SetText(u"secret");
    Box().SetSelLength(kAll);
    Windows.Clipboard().SetText(u"kept");
    Windows.Notices.clear();
    Box().Locked = true;
    c.Act();
    ASSERT_EQ(Windows.Notices.size(), 1u);
    EXPECT_EQ(Contains(Windows.Notices[0], u"editing tasks"),
              !std::string_view(c.Name).starts_with("paste"));
    EXPECT_EQ(Box().Text(), u"secret");
    EXPECT_EQ(Windows.Clipboard().GetText(), u"kept");
    Box().Locked = false;
  }
}

TEST_F(EditingTest, PastedMarkerLocks) {
  Open(Files.Put(u"f.txt", "x"));
  Windows.Clipboard().SetText(u"**This file has been encrypted with WordFlurn 2.0**");
  App().Menu.PasteMenu.Click();
  EXPECT_TRUE(Box().Locked);
  EXPECT_EQ(App().Caption.Get(), u"WordFlurn 2.0 (encrypted) - f.txt");
  EXPECT_FALSE(App().UndoEdit.CanUndo());
}

TEST_F(EditingTest, AKeyPasteGivesTheClipboardBackUnlessSomethingWasCopied) {
  ::Clipboard& clipboard = Windows.Clipboard();
  const auto pasteKey = [&] {
    KeyEvent key{.Key = 'V', .Control = true};
    Box().OnKeyDown(key);
    EXPECT_FALSE(key.Handled);
    return clipboard.Changes();
  };
  for (const bool copied : {false, true}) {
    clipboard.SetText(u"one");
    auto changes = pasteKey();
    EXPECT_EQ(pasteKey(), changes) << "a further paste does not touch the clipboard";
    if (copied) clipboard.SetText(u"two"), ++changes;
    Windows.Advance(3999);
    EXPECT_EQ(clipboard.Changes(), changes);
    Windows.Advance(1);
    EXPECT_EQ(clipboard.Changes(), changes + (copied ? 0 : 1));
    EXPECT_EQ(clipboard.GetText(), copied ? u"two" : u"one");
    EXPECT_NE(pasteKey(), changes) << "the next one does again";
    Windows.Advance(4000);
  }
}

TEST_F(EditingTest, KeysRunTheirCommands) {
  Windows.ChosenFile = Files.Put(u"f.txt", "text");
  const auto f = [](int number) { return kKeyF1 + number - 1; };
  const struct {
    KeyEvent Key;
    bool Swallowed;
    std::function<bool()> Done;
  } steps[] = {
      {{.Key = 'O', .Control = true}, true, [&] { return Box().Text() == u"text"; }},
      {{.Key = f(11)}, false, [&] { return Windows.Clipboard().GetText() == u"text"; }},
      {{.Key = f(12)}, false, [&] { return App().Messages.HelpWindow.Visible.Get(); }},
      {{.Key = f(9)}, false, [&] { return !App().Menu.HorizWordWrapMenu.Checked; }},
      // Keys of the desktop, and characters that are typed with Ctrl and Alt.
      {{.Key = f(9), .Alt = true}, false, [&] { return !App().Menu.HorizWordWrapMenu.Checked; }},
      {{.Key = f(9), .Control = true},
       false,
       [&] { return !App().Menu.HorizWordWrapMenu.Checked; }},
      {{.Key = 'N', .Control = true, .Alt = true}, false, [&] { return Box().Text() == u"text"; }},
      {{.Key = 'F', .Control = true}, true, [&] { return App().Find.IsOpen(); }},
      {{.Key = 'F', .Control = true}, true, [&] { return !App().Find.IsOpen(); }},
      {{.Key = 'S', .Shift = true, .Control = true},
       true,
       [&] { return BytesOf(*Windows.ChosenFile) == "text!"; }},
      {{.Key = 'N', .Control = true}, true, [&] { return Box().Text().empty(); }},
      {{.Key = 'A'}, false, [&] { return Box().Text().empty(); }},
  };
  for (const auto& step : steps) {
    SCOPED_TRACE(step.Key.Key);
    if (step.Key.Shift) Box().SetText(u"text!");
    // A key that is held down does not run a command inside itself.
    KeyEvent key = step.Key;
    const bool before = step.Done();
    App().Fields.ToolBusy = true;
    App().KeyDown(key);
    EXPECT_FALSE(key.Handled);
    EXPECT_EQ(step.Done(), before);
    App().Fields.ToolBusy = false;
    App().KeyDown(key);
    EXPECT_EQ(key.Handled, step.Swallowed);
    EXPECT_TRUE(step.Done());
  }
}

TEST_F(EditingTest, FindGoesThroughTheHits) {
  Box().SetText(u"One two one\r\ntwo ONE");
  EXPECT_TRUE(Press('T', true));
  EXPECT_TRUE(App().Find.IsOpen());
  EXPECT_TRUE(Windows.Notices.empty()) << "nothing was searched for yet";
  App().Find.txtFindText.Text = u"nowhere";
  App().Find.cmdFind.Click();
  EXPECT_EQ(std::exchange(Windows.Notices, {}), std::vector{String(u"Search text not found.")});
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
  EXPECT_EQ(Box().SelText(), u"ONE") << "another text begins at the top";
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

// In any case the text is folded in pieces; hits lie in them and across their ends.
TEST(FindText, HitsInALongTextInAnyCase) {
  constexpr StringView kHit = u"N\xD801\xDC28L";
  String text(300'000, u'x');
  std::vector<std::size_t> places{0, 65'530, 65'536, 131'070, 196'700, 299'993}, hits;
  for (const std::size_t place : places) text.replace(place, kHit.size(), kHit);
  std::size_t start = 0;
  while (const auto hit = FindText(text, u"n\xD801\xDC00l", start, 0)) {
    hits.push_back(*hit);
    start = *hit + 1;
  }
  EXPECT_EQ(hits, places);
  // A piece is 65536 characters and twice what is searched for.
  constexpr std::size_t kPieceEnd = 65'536 + 2 * kHit.size();
  const String blank(kPieceEnd + 20, u'x');
  for (std::size_t place = kPieceEnd - 6; place < kPieceEnd + 6; ++place) {
    text = blank;
    text.replace(place, kHit.size(), kHit);
    EXPECT_EQ(FindText(text, u"n\xD801\xDC00l", 0, 0), place);
    EXPECT_EQ(FindText(text, u"n\xD801\xDC00l", place, 0), place);
    EXPECT_EQ(FindText(text, u"n\xD801\xDC00l", place + 1, 0), std::nullopt);
  }
}

TEST_F(EditingTest, CommandThatFailsLeavesTheKeysAlive) {
  App().Menu.FindMenu.OnClick = [] { throw std::bad_alloc(); };
  EXPECT_THROW(Press('F', true), std::bad_alloc);
  EXPECT_FALSE(App().Fields.ToolBusy);
}

}  // namespace
