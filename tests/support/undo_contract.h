#pragma once
// Undo and redo in the program, whatever its edit control. Include once in a test program and
// instantiate UndoContract with a factory for each implementation.

#include <random>

#include "support/app_fixture.h"

class UndoContract : public AppTest,
                     public testing::WithParamInterface<decltype(ScriptedWindowSystem::MakeBox)> {
 public:
  using AppTest::App;
  using AppTest::Windows;
  void SetUp() override {
    Windows.MakeBox = GetParam();
    Start();
  }
  RichTextBox& Box() { return App().RichTextBox1; }
  clsUndo& Undo() { return App().UndoEdit; }
  void Begin(StringView text) {
    Box().SetText(text);
    Undo().Reset();
  }
  void Select(std::size_t start, std::size_t length) {
    Box().SetSelStart(start);
    Box().SetSelLength(length);
  }
  // Types without a pause.
  void Type(StringView text) { Box().SetSelText(text); }
  void Pause() { Windows.Advance(1000); }
  void RunTool(StringView name) { App().Menu.ToolMenu(name)->Click(); }
  void Press(int key, bool control = false) {
    KeyEvent event;
    event.Key = key;
    event.Control = control;
    Box().OnKeyDown(event);
    EXPECT_EQ(event.Handled, control && (key == 'Z' || key == 'Y'));
  }
};

// Each edit is one record, goes back and comes again, also when the control has not told of it.
TEST_P(UndoContract, EachEditGoesBackAndForth) {
  using Action = void (*)(UndoContract&);
  constexpr Action kDelete = [](UndoContract& t) { t.App().Menu.DeleteMenu.Click(); };
  constexpr Action kUpper = [](UndoContract& t) { t.RunTool(u"All Upper Case"); };
  const auto type = [](StringView text) { return [text](UndoContract& t) { t.Type(text); }; };
  const auto paste = [](StringView text) {
    return [text](UndoContract& t) {
      t.Windows.Clipboard().SetText(text);
      t.App().Menu.PasteMenu.Click();
    };
  };
  const struct {
    StringView Before;
    std::size_t Start, Length;
    std::function<void(UndoContract&)> Edit;
    StringView After;
    clsUndo::Kind Kind;
    std::size_t FrontLength;
    StringView BlockBefore, BlockAfter;
  } cases[] = {
      {u"one", 3, 0, type(u"!"), u"one!", clsUndo::kInserted, 3, u"", u"!"},
      {u"a", 0, 0, type(u"aa"), u"aaa", clsUndo::kInserted, 1, u"", u"aa"},
      {u"one", 2, 1, type(u""), u"on", clsUndo::kDeleted, 2, u"e", u""},
      {u"a\r\nb", 1, 2, kDelete, u"ab", clsUndo::kDeleted, 1, u"\r\n", u""},
      {u"one", 0, 3, paste(u"two"), u"two", clsUndo::kReplaced, 0, u"one", u"two"},
      {u"ab", 1, 0, paste(u"1\r\n2"), u"a1\r\n2b", clsUndo::kInserted, 1, u"", u"1\r\n2"},
      // Blocks that begin or end inside a line end.
      {u"a\r\nb", 1, 2, type(u"\n"), u"a\nb", clsUndo::kDeleted, 1, u"\r", u""},
      {u"a\nb", 1, 1, type(u"\r\n"), u"a\r\nb", clsUndo::kInserted, 1, u"", u"\r"},
      // Pairs that share a half, and a pair beside the same pair.
      {u"a\U0001F600b", 1, 2, type(u"\U0001F601"), u"a\U0001F601b", clsUndo::kReplaced, 1,
       u"\U0001F600", u"\U0001F601"},
      {u"a\U0001F600b", 1, 2, type(u"\U0001FA00"), u"a\U0001FA00b", clsUndo::kReplaced, 1,
       u"\U0001F600", u"\U0001FA00"},
      {u"a\U0001F600b", 1, 0, type(u"\U0001F600"), u"a\U0001F600\U0001F600b", clsUndo::kInserted, 3,
       u"", u"\U0001F600"},
      {u"one two", 3, 0, kUpper, u"ONE TWO", clsUndo::kTool, 0, u"one two", u"ONE TWO"},
      {u"one two six", 4, 3, kUpper, u"one TWO six", clsUndo::kTool, 4, u"two", u"TWO"},
  };
  const auto tellChange = Box().OnChange;
  for (const bool told : {true, false}) {
    for (const auto& c : cases) {
      SCOPED_TRACE(ToUtf8(c.Before) + " -> " + ToUtf8(c.After) + (told ? "" : ", not told"));
      Begin(c.Before);
      Select(c.Start, c.Length);
      if (!told) Box().OnChange = nullptr;
      c.Edit(*this);
      Box().OnChange = tellChange;
      Pause();
      EXPECT_EQ(Box().Text(), c.After);
      const std::size_t caret = Box().SelStart();
      EXPECT_TRUE(Undo().Undo(1));
      EXPECT_EQ(Box().Text(), c.Before);
      EXPECT_EQ(Box().SelStart(), c.Start);
      EXPECT_EQ(Box().SelLength(), c.Length);
      EXPECT_FALSE(Undo().CanUndo());
      EXPECT_TRUE(Undo().Redo(1));
      EXPECT_EQ(Box().Text(), c.After);
      EXPECT_EQ(Box().SelStart(), caret);
      ASSERT_EQ(Undo().UndoCount(), 1);
      const clsUndoElement& record = Undo().UndoRecords().back();
      EXPECT_EQ(record.FrontLength, c.FrontLength);
      EXPECT_EQ(record.TextBlock_BeforeChange, c.BlockBefore);
      EXPECT_EQ(record.TextBlock_AfterChange, c.BlockAfter);
      EXPECT_EQ(record.FrontLength + record.TextBlock_AfterChange.size() + record.EndLength,
                c.After.size());
      EXPECT_EQ(Undo().UndoKind(1), c.Kind);
    }
  }
}

TEST_P(UndoContract, PauseKeyAndMouseEndAStep) {
  const struct {
    const char* Name;
    std::function<void()> Between;
    int Steps;
  } cases[] = {
      {"no pause", [] {}, 1},
      {"too short a pause", [&] { Windows.Advance(999); }, 1},
      {"pause", [&] { Pause(); }, 2},
      {"arrow", [&] { Press(kKeyLeft); }, 2},
      {"Return", [&] { Press(kKeyReturn); }, 2},
      {"F3", [&] { Press(kKeyF1 + 2); }, 2},
      {"a letter", [&] { Press('A'); }, 1},
      {"mouse", [&] { Box().OnMouseDown(); }, 2},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    Begin(u"head tail");
    Box().SetSelStart(5);
    EXPECT_FALSE(Undo().CanUndo());
    Type(u"one ");
    c.Between();
    Type(u"two ");
    Press('Z', true);
    EXPECT_EQ(Box().Text(), c.Steps == 2 ? u"head one tail" : u"head tail");
    Press('Z', true);
    EXPECT_EQ(Box().Text(), u"head tail");
    EXPECT_EQ(Box().SelStart(), 5u) << "where the caret was before the first letter";
    EXPECT_FALSE(Undo().CanUndo());
    Press('Y', true);
    Press('Y', true);
    EXPECT_EQ(Box().Text(), u"head one two tail");
    EXPECT_EQ(Undo().UndoCount(), c.Steps);
  }
}

// What the entries say and allow is what the next click does, at every moment.
TEST_P(UndoContract, KindsAndCaptions) {
  MainMenu& menu = App().Menu;
  const auto type = [&](StringView text) { return [=, this] { Type(text); }; };
  const auto upper = [&] { RunTool(u"All Upper Case"); };
  const struct {
    const char* Name;
    std::function<void()> Act;
    bool CanUndo, ToolBefore, CanRedo, ToolBehind;
  } steps[] = {
      {"start", [] {}, false, false, false, false},
      {"typing", type(u"word"), true, false, false, false},
      {"a pause", [&] { Pause(); }, true, false, false, false},
      {"a tool", upper, true, true, false, false},
      {"typing behind a tool", type(u"x"), true, false, false, false},
      {"its undo", [&] { menu.UndoEditMenu.Click(); }, true, true, true, false},
      {"the tool's undo", [&] { App().Command7.Click(); }, true, false, true, true},
      {"redo", [&] { menu.RedoEditMenu.Click(); }, true, true, true, false},
      {"undo", [&] { menu.UndoEditMenu.Click(); }, true, false, true, true},
      {"typing in place of redo", [&] { Type(u"!"), Pause(); }, true, false, false, false},
      {"all undone", [&] { Undo().Undo(9); }, false, false, true, false},
  };
  for (const auto& step : steps) {
    SCOPED_TRACE(step.Name);
    step.Act();
    EXPECT_EQ(menu.UndoEditMenu.Enabled, step.CanUndo);
    EXPECT_EQ(App().Command7.Enabled, step.CanUndo);
    EXPECT_EQ(menu.RedoEditMenu.Enabled, step.CanRedo);
    EXPECT_EQ(menu.UndoEditMenu.Caption.Get(), step.ToolBefore ? u"&Undo Tool" : u"&Undo Edit");
    EXPECT_EQ(menu.RedoEditMenu.Caption.Get(), step.ToolBehind ? u"&Redo Tool" : u"&Redo Edit");
  }
}

// Typing that pends is a step of its own when a command is chosen as a user does it.
TEST_P(UndoContract, ToolAfterTypingWithoutAPause) {
  const struct {
    const char* Name;
    std::function<void()> Run;
    clsUndo::Kind First, Second;
  } cases[] = {
      {"the wrap alone", [&] { RunTool(u"All Upper Case"); }, clsUndo::kTool, clsUndo::kReplaced},
      {"from the menu", [&] { App().Menu.ToolsMenu.OnOpen(), RunTool(u"All Upper Case"); },
       clsUndo::kInserted, clsUndo::kTool},
      {"from the tool bar", [&] { App().Command11.Click(); }, clsUndo::kInserted, clsUndo::kTool},
      {"cut", [&] { Select(0, 2), App().Menu.CutMenu.Click(), Pause(); }, clsUndo::kInserted,
       clsUndo::kDeleted},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    Begin(u"");
    Type(u"> word");
    c.Run();
    ASSERT_EQ(Undo().UndoCount(), 2);
    EXPECT_EQ(Undo().UndoKind(1), c.First);
    EXPECT_EQ(Undo().UndoKind(2), c.Second);
    for (const int outside : {-1, 0, 3}) EXPECT_EQ(Undo().UndoKind(outside), clsUndo::kOutOfRange);
    EXPECT_FALSE(App().Fields.ToolUndoPending);
  }
}

TEST_P(UndoContract, SeveralStepsAtOnce) {
  Begin(u"");
  for (const bool back : {true, false}) EXPECT_FALSE(back ? Undo().Undo(1) : Undo().Redo(1));
  EXPECT_EQ(Undo().UndoCount(), 0);
  for (const StringView letter : {u"a", u"b", u"c", u"d"}) {
    Type(letter);
    Pause();
  }
  const struct {
    bool Back;
    int Count;
    bool Done;
    StringView Text;
  } steps[] = {
      {true, 0, false, u"abcd"}, {true, -1, false, u"abcd"}, {true, 3, true, u"a"},
      {false, 2, true, u"abc"},  {false, 0, false, u"abc"},  {true, 99, true, u""},
      {true, 1, false, u""},     {false, 99, true, u"abcd"}, {false, 1, false, u"abcd"},
  };
  for (const auto& step : steps) {
    EXPECT_EQ(step.Back ? Undo().Undo(step.Count) : Undo().Redo(step.Count), step.Done);
    EXPECT_EQ(Box().Text(), step.Text);
    EXPECT_EQ(Undo().UndoCount() + Undo().RedoCount(), 4);
  }
  // Typed and taken back is no step.
  Type(u"e");
  Select(4, 1);
  Type(u"");
  EXPECT_FALSE(Undo().TakeUndoSnapShot());
  EXPECT_EQ(Undo().UndoCount(), 4);
}

TEST_P(UndoContract, ScrollPositionComesBack) {
  String text;
  for (int i = 0; i < 500; ++i) text += u"line\r\n";
  const struct {
    const char* Name;
    std::function<void()> Change;
  } cases[] = {
      {"typing", [&] { Type(u"x"); }},
      {"a tool", [&] { RunTool(u"All Upper Case"); }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    Begin(text);
    Box().SetSelStart(103 * 6);
    Box().SetFirstVisibleLine(100);
    c.Change();
    Undo().TakeUndoSnapShot();
    Box().SetSelStart(0);
    Box().SetFirstVisibleLine(0);
    EXPECT_TRUE(Undo().Undo(1));
    EXPECT_EQ(Box().FirstVisibleLine(), 100u);
    EXPECT_EQ(Box().SelStart(), 103u * 6);
  }
}

// Random typing, tool runs and pauses: every record rebuilds the text, undoing all gives the first
// text, redoing all the last.
TEST_P(UndoContract, UndoAllThenRedoAllGivesTheSameText) {
  std::mt19937 random(20260);
  const auto any = [&](std::size_t below) { return random() % below; };
  const StringView pieces[] = {
      u"a",          u"aa",     u"\r\n",       u"\n", u"\r",          u"Zz ", StringView(u"\0", 1),
      u"\U0001F600", u"\xDE00", u"b\r\n\r\nb", u"",   u"\u2028\uFDD0"};
  const String first = u"aab\r\naab\n\U0001F600\r\n\u2029";
  for (int round = 0; round < 60; ++round) {
    SCOPED_TRACE(round);
    Begin(first);
    for (int step = 0; step < 25; ++step) {
      Select(any(Box().TextLength() + 1), any(4) == 0 ? any(6) : 0);
      if (any(8) == 0)
        RunTool(any(2) ? u"All Upper Case" : u"All Lower Case");
      else
        Type(pieces[any(std::size(pieces))]);
      if (any(2)) Pause();
      if (any(6) == 0) Undo().Undo(static_cast<int>(any(3)));
      if (any(6) == 0) Undo().Redo(static_cast<int>(any(3)));
    }
    Undo().TakeUndoSnapShot();
    const String last = Box().Text();
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

    const int steps = Undo().UndoCount();
    const int undone = Undo().RedoCount();
    while (Undo().CanUndo()) Undo().Undo(1 + static_cast<int>(any(3)));
    ASSERT_EQ(Box().Text(), first);
    ASSERT_EQ(Undo().RedoCount(), undone + steps);
    Undo().Redo(steps);
    ASSERT_EQ(Box().Text(), last);
  }
}
