#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QPainter>
#include <QPlainTextEdit>
#include <QUrl>
#include <gtest/gtest.h>
#include <random>

#include "platform/console/string_rich_text_box.h"
#include "platform/qt/qt_rich_text_box.h"
#include "text/runtime_error.h"

namespace {

using namespace std::string_view_literals;

using Random = std::mt19937;

std::size_t Below(Random& random, std::size_t bound) {
  return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random);
}

String RandomText(Random& random, std::size_t longest) {
  static constexpr StringView kTelling =
      u"\r\n\r\n\0\u2028\u2029\uFDD0\uFDD1\uFDD2\uFDD3\uFDD6\xD800\xDC00\xFFFC\u00A0\tab "sv;
  String text(Below(random, longest + 1), u' ');
  const bool wild = Below(random, 4) == 0;
  for (char16_t& c : text)
    c = wild ? static_cast<char16_t>(Below(random, 0x10000))
             : kTelling[Below(random, kTelling.size())];
  return text;
}

// Notes what is reported, in order.
struct Watched {
  explicit Watched(RichTextBox& watched) : box(watched) {
    box.OnChange = [this] {
      events += 'c';
      EXPECT_EQ(box.SharedText()->size(), box.TextLength());
    };
    box.OnSelChange = [this] { events += 's'; };
  }
  RichTextBox& box;
  std::string events;
};

class QtBox : public testing::Test {
 protected:
  QPlainTextEdit& Edit() { return *qobject_cast<QPlainTextEdit*>(box.Widget()); }

  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(&Edit(), &event);
  }

  // Returns whether the editor took it.
  bool Drop(QMimeData& data) {
    const Qt::DropActions actions = Qt::CopyAction;
    QDragEnterEvent enter(QPoint(1, 1), actions, &data, Qt::LeftButton, {});
    QApplication::sendEvent(Edit().viewport(), &enter);
    QDropEvent drop(QPointF(1, 1), actions, &data, Qt::LeftButton, {});
    QApplication::sendEvent(Edit().viewport(), &drop);
    return enter.isAccepted() && drop.isAccepted();
  }

  QtRichTextBox box;
};

}  // namespace

TEST(RichTextBoxProperty, WindowAndConsoleAgreeOnRandomWork) {
  for (unsigned seed = 0; seed < 60; ++seed) {
    Random random(seed);
    QtRichTextBox qtBox;
    StringRichTextBox stringBox;
    Watched qt(qtBox);
    Watched console(stringBox);
    // A window that shows the text lays it out as well.
    if (seed % 2 == 0) qtBox.Widget()->show();
    // The user alone may not change it.
    qtBox.Locked = seed % 3 == 0;
    for (int step = 0; step < 40; ++step) {
      const auto operation = Below(random, 6);
      const String text = RandomText(random, operation == 0 ? 200 : 12);
      const std::size_t number = Below(random, stringBox.TextLength() + 3);
      for (Watched* each : {&qt, &console}) {
        each->events.clear();
        switch (operation) {
          case 0:
            each->box.SetText(text);
            break;
          case 1:
            each->box.SetSelStart(number);
            break;
          case 2:
            each->box.SetSelLength(number / 4);
            break;
          case 3:
            each->box.SetSelText(text);
            break;
          case 4:
            each->box.SetText(each->box.Text());
            break;
          case 5:
            each->box.SetSelText(each->box.SelText());
            break;
        }
      }
      SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step) +
                   ", operation " + std::to_string(operation));
      qtBox.Refresh();
      ASSERT_EQ(qtBox.Text(), stringBox.Text());
      // Not after each step, so that what it notes of several changes comes together.
      if (Below(random, 3) == 0) {
        ASSERT_EQ(*qtBox.SharedText(), stringBox.Text());
      }
      ASSERT_EQ(qtBox.TextLength(), stringBox.TextLength());
      ASSERT_EQ(qtBox.SelStart(), stringBox.SelStart());
      ASSERT_EQ(qtBox.SelLength(), stringBox.SelLength());
      ASSERT_EQ(qtBox.SelText(), stringBox.SelText());
      ASSERT_EQ(qtBox.Caret(), stringBox.Caret());
      ASSERT_EQ(qt.events, console.events);
    }
  }
}

TEST_F(QtBox, AHandlerMayChangeTheText) {
  box.OnChange = [&] {
    EXPECT_EQ(*box.SharedText(), box.Text());
    if (box.TextLength() < 5) box.SetSelText(u"+");
  };
  box.SetText(u"ab");
  EXPECT_EQ(box.Text(), u"+++ab");
}

TEST_F(QtBox, EveryCharacterButFourSurvivesAtOnceAndMoreAreRefused) {
  String most, all;
  for (std::uint32_t c = 0; c <= 0xFFFF; ++c) {
    all += static_cast<char16_t>(c);
    // Four characters are left for what a document can't hold.
    if (c != kCr && (c < 0x4E00 || c > 0x4E03)) most += static_cast<char16_t>(c);
  }
  box.SetText(most);
  EXPECT_TRUE(box.Text() == most);
  box.SetText(u"old\u2028");
  box.SetSelStart(1);
  EXPECT_THROW(box.SetText(all), RuntimeError);
  EXPECT_THROW(box.SetSelText(all), RuntimeError);
  EXPECT_EQ(box.SelStart(), 1u);
  // By the user: nothing happens.
  QMimeData data;
  data.setText(QString::fromStdU16String(all));
  Drop(data);
  EXPECT_EQ(box.Text(), u"old\u2028");
}

TEST_F(QtBox, KeysTypeTextAndLineEnds) {
  const struct {
    const char* Name;
    Qt::Key Key;
    Qt::KeyboardModifiers Modifiers;
    QString Text;
    StringView Result;
  } cases[] = {
      {"letter", Qt::Key_X, {}, u"x"_qs, u"[x]"},
      {"Return", Qt::Key_Return, {}, u"\r"_qs, u"[\r\n]"},
      {"Shift+Return", Qt::Key_Return, Qt::ShiftModifier, u"\r"_qs, u"[\r\n]"},
      {"Tab", Qt::Key_Tab, {}, u"\t"_qs, u"[\t]"},
      {"line separator", Qt::Key_unknown, {}, QString(QChar(0x2028)), u"[\u2028]"},
      {"stand-in", Qt::Key_unknown, {}, QString(QChar(0xFDD2)), u"[\uFDD2]"},
      {"Backspace", Qt::Key_Backspace, {}, u"\b"_qs, u"]"},
      {"Delete", Qt::Key_Delete, {}, {}, u"["},
  };
  for (const auto& c : cases)
    for (const bool locked : {false, true}) {
      box.SetText(u"");
      box.SetText(u"[]");
      box.SetSelStart(1);
      box.Locked = locked;
      int changes = 0;
      box.OnChange = [&] { ++changes; };
      Press(c.Key, c.Modifiers, c.Text);
      EXPECT_EQ(box.Text(), locked ? StringView(u"[]") : c.Result) << c.Name;
      EXPECT_EQ(changes, locked ? 0 : 1) << c.Name;
      box.OnChange = nullptr;
    }
}

TEST_F(QtBox, AnInputMethodChangesTheTextOnlyByWhatItCommits) {
  Edit().show();
  box.SetText(u"ab");
  std::string events;
  box.OnChange = [&] { events += 'c'; };
  QInputMethodEvent composing(u"\u00B4"_qs, {});
  QApplication::sendEvent(&Edit(), &composing);
  EXPECT_EQ(events, "");
  EXPECT_EQ(box.Text(), u"ab");
  QInputMethodEvent commit;
  commit.setCommitString(u"\u00E9\u2029"_qs);
  QApplication::sendEvent(&Edit(), &commit);
  EXPECT_EQ(events, "c");
  EXPECT_EQ(box.Text(), u"\u00E9\u2029ab");
}

TEST_F(QtBox, PasteAndDropTakePlainTextWithTheLineEndsOfItsOrigin) {
  const struct {
    StringView In, Out;
  } cases[] = {
      {u"a\nb\n", u"a\r\nb\r\n"},
      {u"a\r\nb\nc", u"a\r\nb\nc"},
      {u"a\rb", u"a\r\nb"},
      {u"a\u2028\u2029\uFDD2b", u"a\u2028\u2029\uFDD2b"},
      {u"a\u00A0\0b"sv, u"a\u00A0\0b"sv},
      {u"\r\r\n\n", u"\r\n\r\n\n"},
  };
  for (const auto& [in, out] : cases) {
    const auto make = [&text = in] {
      auto data = std::make_unique<QMimeData>();
      data->setText(QString::fromStdU16String(String(text)));
      data->setHtml(u"<b>not this</b>"_qs);
      return data;
    };
    for (const bool locked : {false, true}) {
      box.Locked = locked;
      const StringView wanted = locked ? StringView() : out;
      box.SetText(u"");
      QApplication::clipboard()->setMimeData(make().release());
      Edit().paste();
      EXPECT_EQ(box.Text(), wanted);
      box.SetText(u"");
      Drop(*make());
      EXPECT_EQ(box.Text(), wanted);
    }
  }
  // Copied, it has LF line ends, and every other character stays.
  box.Locked = false;
  box.SetText(u"a\u00A0b\r\n\u2028c\0"sv);
  box.SetSelLength(99);
  Edit().copy();
  EXPECT_EQ(QApplication::clipboard()->text().toStdU16String(), u"a\u00A0b\n\u2028c\0"sv);
  // Files are left to the window.
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile(u"/tmp/a.txt"_qs)});
  files.setText(u"/tmp/a.txt"_qs);
  EXPECT_FALSE(Drop(files));
}

TEST_F(QtBox, ALockedTextStillShowsAndMovesItsCaret) {
  Edit().show();
  Edit().activateWindow();
  Edit().setFocus();
  QApplication::processEvents();
  ASSERT_TRUE(Edit().hasFocus());
  box.SetText(u"abc");
  box.Locked = true;
  const QImage atStart = Edit().viewport()->grab().toImage();
  Press(Qt::Key_Right);
  EXPECT_EQ(box.SelStart(), 1u);
  const QImage atOne = Edit().viewport()->grab().toImage();
  EXPECT_NE(atStart, atOne);
  box.SetSelStart(0);
  EXPECT_EQ(Edit().viewport()->grab().toImage(), atStart);
  // The caret was there before any key moved it.
  Edit().clearFocus();
  EXPECT_NE(Edit().viewport()->grab().toImage(), atStart);
  Press(Qt::Key_End, Qt::ShiftModifier);
  EXPECT_EQ(box.SelText(), u"abc");
}

TEST_F(QtBox, ACaretSetByTheProgramScrollsIntoView) {
  String text;
  for (int line = 0; line < 1000; ++line) text += u"line\r\n";
  Edit().resize(300, 200);
  Edit().show();
  box.SetText(text);
  for (const std::size_t place : {box.TextLength(), std::size_t{0}}) {
    box.SetSelStart(place);
    EXPECT_TRUE(Edit().viewport()->rect().intersects(Edit().cursorRect()));
  }
}

TEST_F(QtBox, FontAndWrapFollowTheirProperties) {
  for (const TextFont& font :
       {TextFont{u"No Such Family", 17, true}, TextFont{u"DejaVu Sans", 9}}) {
    box.Font = font;
    EXPECT_EQ(Edit().font().pointSizeF(), font.Size);
    EXPECT_EQ(Edit().font().bold(), font.Bold);
    EXPECT_EQ(QFontInfo(Edit().font()).fixedPitch(), font.Size == 17) << "a fixed one stands in";
    EXPECT_NEAR(Edit().tabStopDistance(), 8 * QFontMetricsF(Edit().font()).horizontalAdvance(u' '),
                0.01);
  }
  for (const int margin : {400000, 0}) {
    box.RightMargin = margin;
    EXPECT_EQ(Edit().lineWrapMode() == QPlainTextEdit::NoWrap, margin > 0);
  }
}

TEST_F(QtBox, LinesWrapAtWordsUnlessOneIsVeryLong) {
  const String nearly(kLongLine / 2, u'x');
  const int blink = QApplication::cursorFlashTime();
  ASSERT_GT(blink, 0);
  const auto isLong = [&] {
    const bool anywhere = Edit().wordWrapMode() == QTextOption::WrapAnywhere;
    EXPECT_EQ(QApplication::cursorFlashTime(), anywhere ? 0 : blink);
    return anywhere;
  };
  box.SetText(nearly + u"\r\n" + nearly);
  EXPECT_FALSE(isLong());
  box.SetSelStart(nearly.size());
  Press(Qt::Key_Delete);
  Press(Qt::Key_Y, {}, u"y"_qs);
  EXPECT_TRUE(isLong());
  box.SetText(nearly);
  EXPECT_FALSE(isLong());
  box.SetSelText(nearly + nearly);
  EXPECT_TRUE(isLong());
  box.SetText(u"");
  EXPECT_FALSE(isLong());
}

TEST_F(QtBox, ALineFromRightToLeftStandsAtTheRightEdge) {
  Edit().resize(400, 300);
  Edit().show();
  String words;
  for (int i = 0; i < 60; ++i) words += u"\u05D0\u05D1 ";
  box.SetText(u"ab\r\n\u05D0\u05D1\r\n" + words);
  const auto caretAt = [&](std::size_t position) {
    box.SetSelStart(position);
    return Edit().cursorRect().left();
  };
  for (const int margin : {0, 400000}) {
    box.RightMargin = margin;
    for (const int width : {400, 250}) {
      Edit().resize(width, 300);
      const int edge = Edit().viewport()->width() - 20;
      EXPECT_LT(caretAt(0), 20);
      EXPECT_GT(caretAt(4), edge) << "its first character";
      EXPECT_GT(caretAt(6), edge - 40);
      EXPECT_LT(caretAt(6), caretAt(4));
      // A word typed there moves to the left of it.
      const int before = caretAt(6);
      Press(Qt::Key_unknown, {}, u"\u05D2"_qs);
      EXPECT_LT(Edit().cursorRect().left(), before);
      Press(Qt::Key_Backspace);
    }
  }
  box.RightMargin = 0;
  EXPECT_GT(caretAt(8), Edit().viewport()->width() - 20) << "wrapped, it ends there as well";
}
