// The undo engine on the edit control of a window.

#include "platform/qt/qt_rich_text_box.h"
#include "qt/form_fixture.h"
#include "support/undo_contract.h"

// Shown, so that it scrolls.
INSTANTIATE_TEST_SUITE_P(Qt, UndoContract, testing::Values([] {
                           auto box = std::make_unique<QtRichTextBox>();
                           box->Widget()->resize(300, 200);
                           box->Widget()->show();
                           return box;
                         }));

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

TEST_F(UndoInWindow, KeysEditUndoAndRedo) {
  QTest::keyClicks(Widget(), "one");
  QTest::keyClick(Widget(), Qt::Key_Left);
  QTest::keyClicks(Widget(), "two");
  // A caret key ends the step.
  QTest::keyClick(Widget(), Qt::Key_Left);
  QTest::keyClick(Widget(), Qt::Key_Backspace);
  QTest::keyClick(Widget(), Qt::Key_Home);
  QTest::keyClick(Widget(), Qt::Key_Delete);
  QTest::keyClick(Widget(), Qt::Key_End);
  const String texts[] = {u"", u"one", u"ontwoe", u"ontoe", u"ntoe"};
  ASSERT_EQ(box->Text(), texts[4]);
  for (int i = 3; i >= 0; --i) {
    QTest::keyClick(Widget(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box->Text(), texts[i]);
    if (i == 1) {
      EXPECT_EQ(box->SelStart(), 2u);
    }
  }
  for (int i = 1; i <= 4; ++i) {
    QTest::keyClick(Widget(), Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(box->Text(), texts[i]);
  }
}

}  // namespace
