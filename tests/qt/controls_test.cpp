#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QTabWidget>

#include "form_fixture.h"
#include "platform/qt/icons.h"
#include "platform/window/file_lists.h"

namespace {

struct EveryControl : Form {
  explicit EveryControl(WindowSystem& system) : Form(system) {
    Heading.Caption = u"Lines:";
    Lines2.MultiLine = true;
    Tick.Caption = u"Tick";
    First.Caption = u"First";
    Second.Caption = u"Second";
    Other.Caption = u"Other";
    Go.Caption = u"Go";
    for (auto* list : {&Plain, &Ticks, &Many}) list->List = {u"a", u"b", u"c"};
    Ticks.Style = ListBox::Marks::CheckBoxes;
    Many.Style = ListBox::Marks::MultiSelect;
    Fixed.List = {u"one", u"two"};
    Open.List = {u"one", u"two"};
    Open.Editable = true;
    Picture.Icon = u"warning";
  }
  Layout Content() override {
    return Column({Picture, Heading, Line, Lines2, Tick, Group(u"Kind", {First, Second}),
                   Group(u"", {Other}), Row({Plain, Ticks, Many}), Row({Fixed, Open}), Bar,
                   Tabs(Strip, {Group(u"One", {Go}), Group(u"Two", {Inner})})});
  }
  Image Picture;
  Label Heading;
  TextBox Line, Lines2, Inner;
  CheckBox Tick;
  OptionButton First, Second, Other;
  CommandButton Go;
  ListBox Plain, Ticks, Many;
  ComboBox Fixed, Open;
  ProgressBar Bar;
  TabStrip Strip;
};

class Controls : public FormTest {
 protected:
  Controls() { form.Show(); }
  QListView* List(int index) {
    std::vector<QListView*> lists;
    for (auto* view : windows.WindowOf(form)->findChildren<QListView*>())
      if (!view->inherits("QComboBoxListView")) lists.push_back(view);
    return lists.at(static_cast<std::size_t>(index));
  }
  static void ClickRow(QListView* list, int row, Qt::KeyboardModifiers keys = {}) {
    const auto place = list->visualRect(list->model()->index(row, 0)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, keys, place);
  }

  EveryControl form{windows};
};

TEST_F(Controls, ATextBoxOfOneLineFollowsBothWays) {
  auto* view = Find<QLineEdit>(form);
  int changes = 0;
  form.Line.OnChange = [&] { ++changes; };
  form.Line.Text = u"76";
  EXPECT_EQ(view->text(), "76");
  QTest::keyClicks(view, "5");
  EXPECT_EQ(form.Line.Text, u"765");
  EXPECT_EQ(changes, 2);
  form.Line.SelectAll();
  EXPECT_EQ(view->selectedText(), "765");
  QTest::keyClick(view, Qt::Key_Home);
  EXPECT_EQ(form.Line.SelLength, 0);
  EXPECT_EQ(form.Line.SelStart, 0);
  form.Line.Locked = true;
  QTest::keyClicks(view, "1");
  EXPECT_EQ(form.Line.Text, u"765");
}

TEST_F(Controls, AHandlerMayCorrectWhatIsTyped) {
  form.Line.OnChange = [&] { form.Line.Text = UCase(form.Line.Text.Get()); };
  QTest::keyClicks(Find<QLineEdit>(form), "ab");
  EXPECT_EQ(form.Line.Text, u"AB");
  EXPECT_EQ(Find<QLineEdit>(form)->text(), "AB");
}

TEST_F(Controls, ALongTextIsNotCut) {
  form.Line.Text = String(100000, u'x');
  EXPECT_EQ(Find<QLineEdit>(form)->text().size(), 100000);
}

TEST_F(Controls, ATextBoxOfManyLinesCountsBothCharactersOfALineEnd) {
  auto* view = Find<QPlainTextEdit>(form);
  form.Lines2.Text = u"one\r\ntwo\u00A0\r\nthree";
  EXPECT_EQ(view->document()->blockCount(), 3);
  form.Lines2.SelStart = 5;
  form.Lines2.SelLength = 6;
  EXPECT_EQ(view->textCursor().selectedText(), QStringLiteral("two\u00A0\u2029"));
  QTest::keyClick(view, Qt::Key_Return);
  EXPECT_EQ(form.Lines2.Text, u"one\r\n\r\nthree");
  EXPECT_EQ(form.Lines2.SelStart, 7);
}

TEST_F(Controls, ClicksReachTheHandlers) {
  int clicks = 0;
  for (auto* box : {&form.Line, &form.Lines2}) box->OnClick = [&] { ++clicks; };
  form.Go.OnClick = form.Tick.OnClick = [&] { ++clicks; };
  QTest::mouseClick(Find<QLineEdit>(form), Qt::LeftButton);
  QTest::mouseClick(Find<QPlainTextEdit>(form)->viewport(), Qt::LeftButton);
  QTest::mouseClick(Named<QPushButton>(form, "Go"), Qt::LeftButton);
  Named<QCheckBox>(form, "Tick")->click();
  EXPECT_EQ(form.Tick.Value, 1);
  EXPECT_EQ(clicks, 4);
  int doubleClicks = 0;
  form.Line.OnDblClick = [&] { ++doubleClicks; };
  for (QWidget* view :
       {static_cast<QWidget*>(Find<QLineEdit>(form)), Find<QPlainTextEdit>(form)->viewport()}) {
    QTest::mouseClick(view, Qt::LeftButton);
    QTest::mouseDClick(view, Qt::LeftButton);
    QTest::mouseRelease(view, Qt::LeftButton);
  }
  EXPECT_EQ(doubleClicks, 1);
  EXPECT_EQ(clicks, 7) << "a box that knows no double click is clicked twice";
  form.Tick.Value = 0;
  EXPECT_FALSE(Named<QCheckBox>(form, "Tick")->isChecked());
}

TEST_F(Controls, OptionButtonsOfOneGroupExcludeEachOther) {
  form.Other.Value = true;
  form.First.Value = true;
  Named<QRadioButton>(form, "Second")->click();
  EXPECT_FALSE(form.First.Value);
  EXPECT_TRUE(form.Second.Value);
  form.First.Value = true;
  EXPECT_FALSE(form.Second.Value);
  EXPECT_TRUE(form.Other.Value) << "another group";
  form.First.Value = false;
  EXPECT_FALSE(Named<QRadioButton>(form, "First")->isChecked());
}

TEST_F(Controls, APlainListTellsItsRowOnceAndOnlyWhenChosen) {
  int clicks = 0, doubles = 0;
  form.Plain.OnClick = [&] { ++clicks; };
  form.Plain.OnDblClick = [&] { ++doubles; };
  auto* list = List(0);
  list->setFocus();
  EXPECT_EQ(form.Plain.ListIndex, -1) << "getting the keyboard is no choice";
  ClickRow(list, 1);
  EXPECT_EQ(form.Plain.ListIndex, 1);
  EXPECT_EQ(clicks, 1);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {},
                     list->visualRect(list->model()->index(1, 0)).center());
  EXPECT_EQ(doubles, 1);
  form.Plain.ListIndex = 2;
  EXPECT_EQ(list->selectionModel()->selectedIndexes().constFirst().row(), 2);
  form.Plain.RemoveItem(2);
  EXPECT_EQ(form.Plain.ListIndex, -1);
  EXPECT_FALSE(list->selectionModel()->hasSelection());
}

TEST_F(Controls, AListFollowsAnyChangeOfItsRows) {
  const std::vector<std::vector<String>> states{{},
                                                {u"a"},
                                                {u"a", u"b", u"c"},
                                                {u"a", u"c"},
                                                {u"x", u"a", u"c"},
                                                {u"x", u"x", u"a", u"c"},
                                                {u"x", u"a"},
                                                {u"a", u"x"},
                                                {u"q"}};
  auto* list = List(0);
  for (const auto& state : states) {
    form.Plain.List = state;
    std::vector<String> shown;
    for (int row = 0; row < list->model()->rowCount(); ++row)
      shown.push_back(FromQt(list->model()->index(row, 0).data().toString()));
    EXPECT_EQ(shown, state);
  }
}

TEST_F(Controls, TicksAndSelectionsFollowBothWays) {
  auto* ticks = List(1);
  const auto tick = [&](int row) { return ticks->model()->index(row, 0).data(Qt::CheckStateRole); };
  form.Ticks.Select(2, true);
  EXPECT_EQ(tick(2).toInt(), Qt::Checked);
  ticks->setCurrentIndex(ticks->model()->index(0, 0));
  QTest::keyClick(ticks, Qt::Key_Space);
  EXPECT_EQ(form.Ticks.Selected.Get(), (std::set<int>{0, 2}));

  auto* many = List(2);
  form.Many.Selected = std::set<int>{0, 9};
  ClickRow(many, 2, Qt::ControlModifier);
  EXPECT_EQ(form.Many.Selected.Get(), (std::set<int>{0, 2}));
  EXPECT_EQ(form.Many.ListIndex, 2);
  std::set<int> seen;
  form.Many.OnClick = [&] { seen = form.Many.Selected; };
  ClickRow(many, 1);
  EXPECT_EQ(seen, (std::set<int>{1})) << "the selection is there when the handler runs";
}

TEST_F(Controls, ComboBoxesFollowBothWays) {
  const auto boxes = windows.WindowOf(form)->findChildren<QComboBox*>();
  auto* fixed = boxes[0];
  auto* open = boxes[1];
  EXPECT_EQ(fixed->currentIndex(), -1);
  QTest::keyClick(fixed, Qt::Key_Down);
  EXPECT_EQ(form.Fixed.Text, u"one");
  form.Fixed.Text = u"two";
  EXPECT_EQ(fixed->currentIndex(), 1);
  form.Fixed.AddItem(u"three");
  EXPECT_EQ(fixed->count(), 3);
  EXPECT_EQ(fixed->currentText(), "two");

  form.Open.ListIndex = 1;
  open->lineEdit()->setCursorPosition(1);
  QTest::keyClicks(open->lineEdit(), "xy");
  EXPECT_EQ(form.Open.Text, u"txywo") << "the caret stays where the user types";
  EXPECT_EQ(form.Open.ListIndex, -1);
  open->setCurrentIndex(0);
  EXPECT_EQ(form.Open.Text, u"one");
}

TEST_F(Controls, TabsAndProgressFollow) {
  auto* tabs = Find<QTabWidget>(form);
  EXPECT_EQ(tabs->tabText(1), "Two");
  tabs->setCurrentIndex(1);
  EXPECT_EQ(form.Strip.SelectedItem, 1);
  form.Strip.SelectedItem = 0;
  EXPECT_EQ(tabs->currentIndex(), 0);
  form.Bar.Maximum = 8;
  form.Bar.Value = 2;
  EXPECT_EQ(Find<QProgressBar>(form)->value(), 2);
}

TEST_F(Controls, HiddenAndDisabledControlsFollowAndLeaveNoGap) {
  auto* window = windows.WindowOf(form);
  const auto height = [&] {
    QApplication::processEvents();
    return window->layout()->totalSizeHint().height();
  };
  const int full = height();
  form.First.Visible = false;
  form.Second.Visible = false;
  EXPECT_LT(height(), full - 40) << "the frame of the group goes with its controls";
  form.Second.Visible = true;
  form.First.Visible = true;
  EXPECT_EQ(height(), full);
  form.Go.Enabled = false;
  EXPECT_FALSE(Named<QPushButton>(form, "Go")->isEnabled());
  form.Go.ToolTipText = u"a <b>bold</b> step";
  EXPECT_EQ(Named<QPushButton>(form, "Go")->toolTip(), "a &lt;b&gt;bold&lt;/b&gt; step");
}

TEST_F(Controls, SetFocusGivesTheKeyboard) {
  form.Lines2.SetFocus();
  EXPECT_EQ(windows.WindowOf(form)->focusWidget(), Find<QPlainTextEdit>(form));
}

TEST(WrappingText, IsNeverClippedAndGrowsDownward) {
  struct Message : Form {
    using Form::Form;
    Layout Content() override { return Column({Text, Row({Stretch(), Ok, Stretch()})}); }
    Label Text;
    CommandButton Ok;
  };
  QtWindowSystem windows;
  const String sentence = u"A word and another word and so on. ";
  const String path = u"/home/" + String(200, u'p') + u"/" + String(90, u'q');
  String many;
  for (int i = 0; i < 20; ++i) many += sentence;
  for (const String& text : {sentence, many, path, many + path}) {
    Message form(windows);
    form.Text.WordWrap = true;
    form.Text.Caption = sentence;
    form.Show();
    form.Text.Caption = text;
    QApplication::processEvents();
    QWidget* window = windows.WindowOf(form);
    const auto* label = window->findChild<QLabel*>();
    const QRect needed = label->fontMetrics().boundingRect(QRect(0, 0, label->width(), 10000),
                                                           Qt::TextWordWrap, label->text());
    EXPECT_LE(needed.width(), label->width());
    EXPECT_LE(needed.height(), label->height());
    EXPECT_LE(window->width(), label->fontMetrics().averageCharWidth() * 75);
    EXPECT_TRUE(window->rect().contains(window->findChild<QPushButton*>()->geometry()));
  }
}

TEST(Icons, EachIsDrawnInTheColourOfTheText) {
  for (const StringView name :
       {u"open", u"new", u"save", u"print", u"copy-all", u"paste", u"undo", u"redo", u"find",
        u"custom-tool-1", u"custom-tool-2", u"batch", u"email", u"email-poem", u"information",
        u"question", u"warning", u"folder", u"drive"}) {
    const QImage image = NamedIcon(String(name)).pixmap(24, 24).toImage();
    ASSERT_FALSE(image.isNull()) << ToUtf8(name);
    const QColor ink = QApplication::palette().color(QPalette::WindowText);
    int drawn = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (image.pixelColor(x, y).alpha() > 250) {
          ++drawn;
          EXPECT_EQ(image.pixelColor(x, y).rgb(), ink.rgb());
        }
    EXPECT_GT(drawn, 10) << ToUtf8(name);
  }
  EXPECT_TRUE(NamedIcon(u"no such").isNull());
}

TEST(FileLists, WorkInAWindow) {
  struct Browse : Form {
    using Form::Form;
    Layout Content() override { return Column({Folders, Ok}); }
    DirListBox Folders;
    CommandButton Ok;
  };
  QtWindowSystem windows;
  Browse form(windows);
  int pressed = 0;
  form.Ok.Default = true;
  form.Ok.OnClick = [&] { ++pressed; };
  form.Folders.Go(u"/usr");
  form.Show();
  auto* list = windows.WindowOf(form)->findChild<QListView*>();
  EXPECT_EQ(list->currentIndex().data().toString(), "usr");
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualRect(list->model()->index(0, 0)).center());
  EXPECT_EQ(form.Folders.Path, u"/usr") << "a click only highlights";
  EXPECT_EQ(form.Folders.Highlighted(), u"/");
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(form.Folders.Path, u"/");
  EXPECT_EQ(pressed, 0) << "Return goes to the folder";
  EXPECT_EQ(list->currentIndex().row(), 0);
  form.Folders.ListIndex = 1;
  EXPECT_EQ(list->currentIndex().row(), 1);
}

}  // namespace
