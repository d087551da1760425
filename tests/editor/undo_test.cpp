// Undo and redo: steps, their kinds, what comes back, and what happens when the engine fails.

#include <random>

#include "editor/cls_undo.h"
#include "editor/common_length.h"
#include "platform/console/string_rich_text_box.h"
#include "support/app_fixture.h"

namespace {

class UndoTest : public AppTest {
 public:
  using AppTest::Windows;
  void SetUp() override { Start(); }
  RichTextBox& Box() { return App().RichTextBox1; }
  clsUndo& Undo() { return App().UndoEdit; }
  // Types without a pause.
  void Type(StringView text) { Box().SetSelText(text); }
  void Pause() { Windows.Advance(1000); }
  void Press(int key, bool control = false) {
    KeyEvent event;
    event.Key = key;
    event.Control = control;
    Box().OnKeyDown(event);
    EXPECT_EQ(event.Handled, control && (key == 'Z' || key == 'Y'));
  }
};

TEST_F(UndoTest, PauseKeyAndMouseEndAStep) {
  struct Case {
    const char* Name;
    std::function<void(UndoTest&)> Between;
    int Steps;
  };
  const Case cases[] = {
      {"no pause", [](UndoTest&) {}, 1},
      {"too short a pause", [](UndoTest& t) { t.Windows.Advance(999); }, 1},
      {"pause", [](UndoTest& t) { t.Pause(); }, 2},
      {"arrow", [](UndoTest& t) { t.Press(kKeyLeft); }, 2},
      {"Return", [](UndoTest& t) { t.Press(kKeyReturn); }, 2},
      {"F3", [](UndoTest& t) { t.Press(kKeyF1 + 2); }, 2},
      {"a letter", [](UndoTest& t) { t.Press('A'); }, 1},
      {"mouse", [](UndoTest& t) { t.Box().OnMouseDown(); }, 2},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Name);
    Box().SetText(u"");
    Undo().Reset();
    EXPECT_FALSE(Undo().CanUndo());
    Type(u"one");
    c.Between(*this);
    Type(u"two");
    Press('Z', true);
    EXPECT_EQ(Box().Text(), c.Steps == 2 ? u"one" : u"");
    Press('Z', true);
    EXPECT_EQ(Box().Text(), u"");
    EXPECT_FALSE(Undo().CanUndo());
    Press('Y', true);
    Press('Y', true);
    EXPECT_EQ(Box().Text(), u"onetwo");
    EXPECT_EQ(Undo().UndoCount(), c.Steps);
  }
}

TEST_F(UndoTest, KindsAndCaptions) {
  EXPECT_FALSE(App().Menu.UndoEditMenu.Enabled);
  Type(u"word");
  Pause();
  EXPECT_EQ(Undo().UndoKind(1), clsUndo::kInserted);
  Box().SetSelStart(0);
  Box().SetSelLength(2);
  Type(u"x");
  Pause();
  EXPECT_EQ(Undo().UndoKind(2), clsUndo::kReplaced);
  Box().SetSelStart(0);
  Box().SetSelLength(1);
  Type(u"");
  Pause();
  EXPECT_EQ(Undo().UndoKind(3), clsUndo::kDeleted);
  EXPECT_EQ(App().Menu.UndoEditMenu.Caption.Get(), u"&Undo Edit");
  App().Menu.ToolMenu(u"All Upper Case")->Click();
  EXPECT_EQ(Undo().UndoKind(4), clsUndo::kTool);
  EXPECT_EQ(App().Menu.UndoEditMenu.Caption.Get(), u"&Undo Tool");
  for (const int outside : {-1, 0, 5}) EXPECT_EQ(Undo().UndoKind(outside), clsUndo::kOutOfRange);
  App().Menu.UndoEditMenu.Click();
  EXPECT_EQ(Box().Text(), u"rd");
  EXPECT_EQ(App().Menu.UndoEditMenu.Caption.Get(), u"&Undo Edit");
  EXPECT_EQ(App().Menu.RedoEditMenu.Caption.Get(), u"&Redo Tool");
  EXPECT_TRUE(App().Menu.RedoEditMenu.Enabled);
  Type(u"!");
  Pause();
  EXPECT_FALSE(App().Menu.RedoEditMenu.Enabled);
  EXPECT_FALSE(Undo().Redo(1));
}

TEST_F(UndoTest, PendingTypingTakesTheToolMark) {
  Type(u"word");
  App().Menu.ToolMenu(u"All Upper Case")->Click();
  EXPECT_EQ(Undo().UndoKind(1), clsUndo::kTool);
  EXPECT_EQ(Undo().UndoKind(2), clsUndo::kReplaced);
  EXPECT_FALSE(App().Fields.ToolUndoPending);
}

TEST_F(UndoTest, SelectionComesBack) {
  Box().SetText(u"one two three");
  Undo().Reset();
  Box().SetSelStart(4);
  Box().SetSelLength(3);
  Type(u"2");
  Pause();
  Box().SetSelStart(0);
  Undo().Undo(1);
  EXPECT_EQ(Box().SelText(), u"two");
  Undo().Redo(1);
  EXPECT_EQ(Box().SelStart(), 5u);

  Box().SetSelStart(0);
  Box().SetSelLength(3);
  App().Menu.ToolMenu(u"All Upper Case")->Click();
  Box().SetSelStart(9);
  Undo().Undo(1);
  EXPECT_EQ(Box().SelText(), u"one");
}

TEST_F(UndoTest, SameTextRecordsNothing) {
  Type(u"a");
  Pause();
  const int steps = Undo().UndoCount();
  Type(u"b");
  Box().SetSelStart(1);
  Box().SetSelLength(1);
  Type(u"");
  EXPECT_FALSE(Undo().TakeUndoSnapShot());
  EXPECT_EQ(Undo().UndoCount(), steps);
  EXPECT_FALSE(Undo().Undo(0));
  EXPECT_TRUE(Undo().Undo(99));
  EXPECT_EQ(Box().Text(), u"");
  EXPECT_FALSE(Undo().Undo(1));
}

TEST(ClsUndo, WithoutAControlEachOperationSaysSo) {
  ScriptedWindowSystem windows;
  SharedFields fields;
  clsUndo undo(windows, fields);
  EXPECT_FALSE(undo.Reset());
  EXPECT_EQ(undo.Failure(), u"clUndo.Reset() : Can't proceed. No textbox control assigned");
  EXPECT_FALSE(undo.Undo(1));
  EXPECT_EQ(undo.Failure(), u"clUndo.Undo() : Can't proceed. No textbox control assigned");
  EXPECT_FALSE(undo.Redo(1));
  EXPECT_EQ(undo.Failure(), u"clUndo.Redo() : Can't proceed. No textbox control assigned");
  EXPECT_FALSE(undo.TakeUndoSnapShot());
  EXPECT_EQ(undo.Failure(),
            u"clUndo.TakeUndoSnapShot() : Can't proceed. No textbox control assigned");
  EXPECT_FALSE(fields.UndoBroken);
}

// A text box that runs out of memory on demand.
class FailingBox : public StringRichTextBox {
 public:
  String Text() const override {
    if (Fail) throw std::bad_alloc();
    return StringRichTextBox::Text();
  }
  bool Fail = false;
};

TEST(ClsUndo, FailureBreaksTheEngineAndNotTheText) {
  ScriptedWindowSystem windows;
  SharedFields fields;
  FailingBox box;
  clsUndo undo(windows, fields);
  ASSERT_TRUE(undo.AttachRichTextBox(box, 1000));
  box.SetText(u"one");
  undo.ControlChanged();
  windows.Advance(1000);
  box.SetText(u"two");
  undo.ControlChanged();
  box.Fail = true;
  EXPECT_FALSE(undo.Undo(1));
  box.Fail = false;
  EXPECT_TRUE(fields.UndoBroken);
  EXPECT_EQ(box.Text(), u"two");
  EXPECT_FALSE(undo.CanUndo());
}

TEST_F(UndoTest, BrokenEngineIsToldAndItsEntriesGo) {
  Type(u"one");
  Pause();
  App().Fields.UndoBroken = true;
  App().Menu.UndoEditMenu.Click();
  EXPECT_EQ(Box().Text(), u"one");
  ASSERT_EQ(Windows.Notices.size(), 1u);
  EXPECT_TRUE(Windows.Notices[0].starts_with(u"An serious system error occurred"));
  EXPECT_FALSE(App().Menu.UndoEditMenu.Visible);
  EXPECT_FALSE(App().Menu.RedoEditMenu.Visible);
  EXPECT_FALSE(App().Menu.hyphen9.Visible);
  // The button falls back on the undo of the last tool.
  Box().SetText(u"word");
  App().Menu.ToolMenu(u"All Upper Case")->Click();
  EXPECT_EQ(Box().Text(), u"WORD");
  App().Command7.Click();
  EXPECT_EQ(Box().Text(), u"word");
}

TEST_F(UndoTest, BrokenEngineIsToldByTheKeyAsWell) {
  Type(u"one");
  Pause();
  App().Fields.UndoBroken = true;
  Press('Z', true);
  EXPECT_EQ(Windows.Notices.size(), 1u);
  EXPECT_FALSE(App().Menu.UndoEditMenu.Visible);
  Press('Z', true);
  EXPECT_EQ(Windows.Notices.size(), 1u);
  EXPECT_EQ(Box().Text(), u"one");
}

TEST_F(UndoTest, ScrollPositionOfBeforeAToolComesBack) {
  Box().SetText(u"one\r\ntwo");
  Undo().Reset();
  Box().SetFirstVisibleLine(7);
  App().UndoStop();
  Box().SetText(u"ONE\r\nTWO");
  Box().SetFirstVisibleLine(0);
  App().UndoStart();
  Undo().Undo(1);
  EXPECT_EQ(Box().FirstVisibleLine(), 7u);
}

TEST(ClsUndo, WatchesATextBox) {
  ScriptedWindowSystem windows;
  SharedFields fields;
  TextBox box;
  clsUndo undo(windows, fields);
  box.OnChange = [&] { undo.ControlChanged(); };
  ASSERT_TRUE(undo.AttachTextBox(box, 1000));
  box.SetSelText(u"one");
  windows.Advance(1000);
  box.SetSelText(u"two");
  EXPECT_TRUE(undo.Undo(1));
  EXPECT_EQ(box.Text.Get(), u"one");
  EXPECT_TRUE(undo.Undo(1));
  EXPECT_EQ(box.Text.Get(), u"");
  EXPECT_TRUE(undo.Redo(2));
  EXPECT_EQ(box.Text.Get(), u"onetwo");
}

TEST(CommonLengths, Cases) {
  struct Case {
    StringView A, B;
    std::size_t Front, End;
  };
  const Case cases[] = {
      {u"", u"", 0, 0},
      {u"a", u"aaa", 1, 0},
      {u"abc", u"abc", 3, 0},
      {u"abcd", u"abXcd", 2, 2},
      {u"xa", u"ya", 0, 1},
      {u"\xD83D\xDE00", u"\xD83D\xDE01", 0, 0},
      {u"\xD83D\xDE00", u"\xD83C\xDE00", 0, 0},
      {u"a\xD83D\xDE00"
       u"b",
       u"a\xD83D\xDE00\xD83D\xDE00"
       u"b",
       3, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::PrintToString(String(c.A)) + testing::PrintToString(String(c.B)));
    const CommonLengths common = FindCommonLengths(c.A, c.B);
    EXPECT_EQ(common.Front, c.Front);
    EXPECT_EQ(common.End, c.End);
  }
}

// Random typing, tool runs and pauses: every record rebuilds the text, undoing all gives the first
// text, redoing all the last.
TEST_F(UndoTest, UndoAllThenRedoAllGivesTheSameText) {
  std::mt19937 random(20260);
  const StringView pieces[] = {
      u"a",      u"aa", u"\r\n",      u"\n", u"\r", u"Zz ", StringView(u"\0", 1), u"\xD83D\xDE00",
      u"\xDE00", u"",   u"b\r\n\r\nb"};
  for (int round = 0; round < 60; ++round) {
    const String first = u"aab\r\naab\n\xD83D\xDE00\r\n";
    Box().SetText(first);
    Undo().Reset();
    for (int step = 0; step < 25; ++step) {
      const auto any = [&](std::size_t below) { return random() % below; };
      if (any(8) == 0) {
        App().Menu.ToolMenu(any(2) ? u"All Upper Case" : u"All Lower Case")->Click();
      } else {
        Box().SetSelStart(any(Box().TextLength() + 1));
        Box().SetSelLength(any(4) == 0 ? any(6) : 0);
        Type(pieces[any(std::size(pieces))]);
      }
      if (any(2)) Pause();
      if (any(6) == 0) Undo().Undo(static_cast<int>(any(3)));
      if (any(6) == 0) Undo().Redo(static_cast<int>(any(3)));
    }
    Undo().TakeUndoSnapShot();
    const String last = Box().Text();
    const int steps = Undo().UndoCount();
    const int undone = Undo().RedoCount();
    Undo().Undo(steps + 5);
    ASSERT_EQ(Box().Text(), first);
    ASSERT_EQ(Undo().RedoCount(), undone + steps);
    Undo().Redo(steps);
    ASSERT_EQ(Box().Text(), last);

    String text = last;
    const auto& records = Undo().UndoRecords();
    for (std::size_t i = records.size() - 1; i > 0; --i) {
      const clsUndoElement& record = records[i];
      ASSERT_EQ(text.size(),
                record.FrontLength + record.TextBlock_AfterChange.size() + record.EndLength);
      ASSERT_EQ(text.substr(record.FrontLength, record.TextBlock_AfterChange.size()),
                record.TextBlock_AfterChange);
      text.replace(record.FrontLength, record.TextBlock_AfterChange.size(),
                   record.TextBlock_BeforeChange);
    }
    ASSERT_EQ(text, first);
  }
}

}  // namespace
