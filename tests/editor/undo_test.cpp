// The undo engine over the control without a display, and what happens when it fails.

#include "editor/common_length.h"
#include "platform/console/string_rich_text_box.h"
#include "support/undo_contract.h"

INSTANTIATE_TEST_SUITE_P(String, UndoContract,
                         testing::Values([] { return std::make_unique<StringRichTextBox>(); }));

namespace {

// Has no memory left for one copy of its text.
class StarvedBox : public StringRichTextBox {
 public:
  mutable bool Starved = false;

 protected:
  SharedString ReadText(const SharedString& before) const override {
    if (std::exchange(Starved, false)) throw std::bad_alloc();
    return StringRichTextBox::ReadText(before);
  }
};

class StarvedUndo : public AppTest {
 protected:
  StarvedUndo() {
    Windows.MakeBox = [] { return std::make_unique<StarvedBox>(); };
  }
  void Press(int key) {
    KeyEvent event;
    event.Key = key;
    event.Control = true;
    App().RichTextBox1.OnKeyDown(event);
    EXPECT_TRUE(event.Handled);
  }
};

TEST_F(StarvedUndo, IsToldOnceAndTheTextStays) {
  const struct {
    const char* Name;
    // What comes between typing and the wish to undo; whichever reads the text first fails.
    std::function<void()> Fail, Ask;
  } cases[] = {
      {"at the menu entry", [] {}, [this] { App().Menu.UndoEditMenu.Click(); }},
      {"at the button", [] {}, [this] { App().Command7.Click(); }},
      {"at the key", [] {}, [this] { Press('Z'); }},
      {"at the key of redo", [] {}, [this] { Press('Y'); }},
      {"when typing pauses", [this] { Windows.Advance(1000); },
       [this] { App().Menu.UndoEditMenu.Click(); }},
      {"when the menu opens", [this] { App().Menu.EditMenu.OnOpen(); },
       [this] { App().Menu.UndoEditMenu.Click(); }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    ChangeCase& app = Start();
    RichTextBox& box = app.RichTextBox1;
    Windows.Notices.clear();
    box.SetSelText(u"one");
    Windows.Advance(1000);
    box.SetSelText(u" two");
    dynamic_cast<StarvedBox&>(box).Starved = true;
    c.Fail();
    EXPECT_TRUE(app.Menu.UndoEditMenu.Visible && app.Menu.UndoEditMenu.Enabled);
    c.Ask();
    EXPECT_FALSE(dynamic_cast<StarvedBox&>(box).Starved);
    EXPECT_EQ(box.Text(), u"one two");
    EXPECT_EQ(Windows.Notices,
              std::vector{String(
                  u"An serious system error occurred that prevents this function from working "
                  u"correctly. The undo edit and redo edit options have been disabled.")});
    for (const MenuItem* item : {&app.Menu.UndoEditMenu, &app.Menu.RedoEditMenu, &app.Menu.hyphen9})
      EXPECT_FALSE(item->Visible);
    // Neither is it told again, nor does anything come back.
    Press('Z');
    EXPECT_EQ(Windows.Notices.size(), 1u);
    EXPECT_EQ(box.Text(), u"one two");
    // The button falls back on the undo of the last tool.
    app.Menu.ToolMenu(u"All Upper Case")->Click();
    EXPECT_EQ(box.Text(), u"ONE TWO");
    app.Command7.Click();
    EXPECT_EQ(box.Text(), u"one two");
  }
}

TEST(ClsUndo, WithoutAControlEachOperationSaysSo) {
  ScriptedWindowSystem windows;
  SharedFields fields;
  clsUndo undo(windows, fields);
  for (const auto& [name, done] : std::initializer_list<std::pair<StringView, bool>>{
           {u"Reset", undo.Reset()},
           {u"Undo", undo.Undo(1)},
           {u"Redo", undo.Redo(1)},
           {u"TakeUndoSnapShot", undo.TakeUndoSnapShot()}})
    EXPECT_FALSE(done) << ToUtf8(name);
  EXPECT_EQ(undo.Failure(),
            u"clUndo.TakeUndoSnapShot() : Can't proceed. No textbox control assigned");
  EXPECT_FALSE(fields.UndoBroken);
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
      // A half that stands alone in one of the two.
      {u"\xD83D\xDE00", u"\xD83Dx", 0, 0},
      {u"\xD83Dx", u"\xD83D\xDE00", 0, 0},
      {u"\xD83D\xDE00", u"x\xDE00", 0, 0},
      {u"x\xDE00", u"\xD83D\xDE00", 0, 0},
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

}  // namespace
