// The undo engine on the edit control of a window.

#include <random>

#include "editor/cls_undo.h"
#include "platform/qt/qt_rich_text_box.h"
#include "qt/form_fixture.h"

namespace {

class UndoInWindow : public FormTest {
 protected:
  UndoInWindow() {
    box->OnChange = [this] { undo.ControlChanged(); };
    box->OnSelChange = [this] { undo.SelectionChanged(); };
    box->OnKeyDown = [this](KeyEvent& key) { undo.KeyDown(key); };
    undo.AttachRichTextBox(*box, 1000);
  }
  QWidget* Widget() { return dynamic_cast<QtRichTextBox&>(*box).Widget(); }

  SharedFields fields;
  std::unique_ptr<RichTextBox> box = windows.CreateRichTextBox();
  clsUndo undo{windows, fields};
};

TEST_F(UndoInWindow, KeysTypeUndoAndRedo) {
  QTest::keyClicks(Widget(), "one");
  QTest::keyClick(Widget(), Qt::Key_Left);
  QTest::keyClicks(Widget(), "two");
  EXPECT_EQ(box->Text(), u"ontwoe");
  QTest::keyClick(Widget(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(box->Text(), u"one");
  EXPECT_EQ(box->SelStart(), 2u);
  QTest::keyClick(Widget(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(box->Text(), u"");
  QTest::keyClick(Widget(), Qt::Key_Y, Qt::ControlModifier);
  QTest::keyClick(Widget(), Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(box->Text(), u"ontwoe");
}

TEST_F(UndoInWindow, ScrollPositionComesBack) {
  String text;
  for (int i = 0; i < 500; ++i) text += u"line\r\n";
  Widget()->resize(300, 200);
  Widget()->show();
  box->SetText(text);
  undo.Reset();
  box->SetFirstVisibleLine(100);
  box->SetSelStart(103 * 6);
  box->SetFirstVisibleLine(100);
  box->SetSelText(u"x");
  undo.TakeUndoSnapShot();
  box->SetSelStart(0);
  EXPECT_EQ(box->FirstVisibleLine(), 0u);
  undo.Undo(1);
  EXPECT_EQ(box->FirstVisibleLine(), 100u);
  EXPECT_EQ(box->SelStart(), 103u * 6);
}

TEST_F(UndoInWindow, UndoAllThenRedoAllGivesTheSameText) {
  std::mt19937 random(7);
  const StringView pieces[] = {u"a",  u"aa",           u"\r\n",         u"\n",
                               u"\r", u"\u2028\uFDD0", u"\xD83D\xDE00", u"\xDE00",
                               u"",   u"b\r\n\r\nb"};
  for (int round = 0; round < 20; ++round) {
    const String first = u"aab\r\naab\n\xD83D\xDE00\r\n\u2029";
    box->SetText(first);
    undo.Reset();
    for (int step = 0; step < 25; ++step) {
      box->SetSelStart(random() % (box->TextLength() + 1));
      box->SetSelLength(random() % 3 ? 0 : random() % 6);
      box->SetSelText(pieces[random() % std::size(pieces)]);
      if (random() % 2) undo.TakeUndoSnapShot();
    }
    undo.TakeUndoSnapShot();
    const String last = box->Text();
    const int steps = undo.UndoCount();
    while (undo.CanUndo()) undo.Undo(1 + static_cast<int>(random() % 3));
    ASSERT_EQ(box->Text(), first);
    undo.Redo(steps);
    ASSERT_EQ(box->Text(), last);
  }
}

}  // namespace
