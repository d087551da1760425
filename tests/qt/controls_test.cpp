#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QTabWidget>
#include <QTextBlock>

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
    return Column({Picture, Heading, Line, Lines2, Tick,
                   Group(u"Outer", {Group(u"Kind", {First, Second})}), Group(u"", {Other}),
                   Row({Plain, Ticks, Many}), Row({Fixed, Open}), Bar,
                   Tabs(Strip, {Group(u"One", {Go}), Group(u"Two", {Diff})})});
  }
  Image Picture;
  Label Heading;
  TextBox Line, Lines2;
  CheckBox Tick;
  OptionButton First, Second, Other;
  CommandButton Go;
  ListBox Plain, Ticks, Many;
  ComboBox Fixed, Open;
  ProgressBar Bar;
  DiffList Diff;
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
  QComboBox* Combo(int index) { return Find<QComboBox>(form, index); }
  static void ClickRow(QListView* list, int row, Qt::KeyboardModifiers keys = {}) {
    const auto place = list->visualRect(list->model()->index(row, 0)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, keys, place);
  }
  static int SelectedRow(const QListView* list) {
    const auto rows = list->selectionModel()->selectedIndexes();
    return rows.isEmpty() ? -1 : rows.constFirst().row();
  }

  EveryControl form{windows};
};

// What the program sets is shown; what the user does is set.
TEST_F(Controls, ALongRowDoesNotMakeTheBoxWiderThanTheScreen) {
  const int narrow = Combo(0)->sizeHint().width();
  form.Fixed.List = {u"a longer row than those before", String(5000, u'x')};
  form.Fixed.ListIndex = 1;
  for (const int width : {Combo(0)->sizeHint().width(), Combo(0)->minimumSizeHint().width()}) {
    EXPECT_GE(width, narrow);
    EXPECT_LT(width, Combo(0)->screen()->size().width());
  }
}

TEST_F(Controls, FollowBothWays) {
  QWidget& window = *windows.WindowOf(form);
  auto* line = Find<QLineEdit>(form);
  auto* lines = Find<QPlainTextEdit>(form);
  auto* tick = Named<QCheckBox>(form, "Tick");
  auto* go = Named<QPushButton>(form, "Go");
  auto* tabs = Find<QTabWidget>(form);
  auto* bar = Find<QProgressBar>(form);
  auto* heading = Named<QLabel>(form, "Lines:");
  const struct {
    const char* Name;
    std::function<void()> Set;
    std::function<bool()> Shown;
    std::function<void()> Act;
    std::function<bool()> Noted;
  } cases[] = {
      {"a line", [&] { form.Line.Text = u"76"; }, [&] { return line->text() == "76"; },
       [&] { QTest::keyClicks(line, "5"); }, [&] { return form.Line.Text == u"765"; }},
      {"its selection", [&] { form.Line.SelStart = 1, form.Line.SelLength = 2; },
       [&] { return line->selectedText() == "65"; }, [&] { QTest::keyClick(line, Qt::Key_End); },
       [&] { return form.Line.SelStart == 3 && form.Line.SelLength == 0; }},
      {"a locked line", [&] { form.Line.Locked = true; }, [&] { return line->isReadOnly(); },
       [&] { QTest::keyClicks(line, "1"); }, [&] { return form.Line.Text == u"765"; }},
      {"a long text", [&] { form.Line.Locked = false, form.Line.Text = String(100000, u'x'); },
       [&] { return line->text().size() == 100000; }, [&] { QTest::keyClicks(line, "1"); },
       [&] { return form.Line.Text.Get().size() == 100001; }},
      {"lines", [&] { form.Lines2.Text = u"one\r\ntwo\u00A0\r\nthree"; },
       [&] { return lines->document()->blockCount() == 3; }, [&] { QTest::keyClicks(lines, "x"); },
       [&] { return form.Lines2.Text == u"xone\r\ntwo\u00A0\r\nthree"; }},
      // Both characters of a line end count.
      {"their selection", [&] { form.Lines2.SelStart = 6, form.Lines2.SelLength = 6; },
       [&] { return lines->textCursor().selectedText() == QStringLiteral("two\u00A0\u2029"); },
       [&] { QTest::keyClick(lines, Qt::Key_Return); },
       [&] { return form.Lines2.Text == u"xone\r\n\r\nthree" && form.Lines2.SelStart == 8; }},
      {"locked lines can be selected", [&] { form.Lines2.Locked = true; },
       [&] { return lines->isReadOnly(); },
       [&] {
         QTest::keyClicks(lines, "y"), QTest::keyClick(lines, Qt::Key_Right, Qt::ShiftModifier);
       },
       [&] { return form.Lines2.SelText() == u"t"; }},
      {"a box to tick", [&] { form.Tick.Value = 1; }, [&] { return tick->isChecked(); },
       [&] { tick->click(); }, [&] { return form.Tick.Value == 0; }},
      {"tabs", [&] { form.Strip.SelectedItem = 1; }, [&] { return tabs->currentIndex() == 1; },
       [&] { tabs->setCurrentIndex(0); }, [&] { return form.Strip.SelectedItem == 0; }},
      {"a fixed choice", [&] { form.Fixed.Text = u"two", form.Fixed.AddItem(u"three"); },
       [&] { return Combo(0)->currentText() == "two" && Combo(0)->count() == 3; },
       [&] { QTest::keyClick(Combo(0), Qt::Key_Down); },
       [&] { return form.Fixed.Text == u"three" && form.Fixed.ListIndex == 2; }},
      {"a text of one's own", [&] { form.Open.ListIndex = 1; },
       [&] { return Combo(1)->currentText() == "two"; },
       [&] {
         Combo(1)->lineEdit()->setCursorPosition(1);
         QTest::keyClicks(Combo(1)->lineEdit(), "xy");
       },
       [&] { return form.Open.Text == u"txywo" && form.Open.ListIndex == -1; }},
      {"progress", [&] { form.Bar.Maximum = 8, form.Bar.Value = 2; },
       [&] { return bar->value() == 2 && bar->text() == "25%"; },
       [&] { form.Bar.Text = u"2 of 8, 100%v"; },
       [&] { return bar->text().remove(QChar(0x200B)) == "2 of 8, 100%v"; }},
      {"a plain row", [&] { form.Plain.ListIndex = 2; }, [&] { return SelectedRow(List(0)) == 2; },
       [&] { ClickRow(List(0), 1); }, [&] { return form.Plain.ListIndex == 1; }},
      {"a ticked row", [&] { form.Ticks.Select(2, true); },
       [&] { return List(1)->model()->index(2, 0).data(Qt::CheckStateRole) == Qt::Checked; },
       [&] {
         List(1)->setCurrentIndex(List(1)->model()->index(0, 0));
         QTest::keyClick(List(1), Qt::Key_Space);
       },
       [&] {
         return form.Ticks.Selected.Get() == std::set{0, 2};
       }},
      {"selected rows",
       [&] {
         form.Many.Selected = std::set{0, 9};
       },
       [&] { return SelectedRow(List(2)) == 0; },
       [&] { ClickRow(List(2), 2, Qt::ControlModifier); },
       [&] {
         return form.Many.Selected.Get() == std::set{0, 2} && form.Many.ListIndex == 2;
       }},
      {"a label's text", [&] { form.Heading.Caption = u"Rows:"; },
       [&] { return heading->text() == "Rows:"; }, [&] { form.Heading.Visible = false; },
       [&] { return !heading->isVisible(); }},
      {"a tip without tags", [&] { form.Go.ToolTipText = u"a <b>bold</b> step"; },
       [&] { return go->toolTip() == "a &lt;b&gt;bold&lt;/b&gt; step"; },
       [&] { form.Go.Enabled = false; }, [&] { return !go->isEnabled(); }},
      {"a name", [&] { form.Picture.AccessibleName = u"Warning"; },
       [&] { return window.findChildren<QWidget*>().constFirst()->accessibleName() == "Warning"; },
       [&] { form.Lines2.SetFocus(); }, [&] { return window.focusWidget() == lines; }},
      {"patience", [&] { form.Busy = true; }, [&] { return window.cursor() == Qt::BusyCursor; },
       [&] { form.Busy = false; }, [&] { return window.cursor() == Qt::ArrowCursor; }},
  };
  for (const auto& c : cases) {
    c.Set();
    EXPECT_TRUE(c.Shown()) << c.Name;
    c.Act();
    EXPECT_TRUE(c.Noted()) << c.Name;
  }
}

TEST_F(Controls, AHandlerMayCorrectWhatIsTyped) {
  int changes = 0;
  form.Line.OnChange = [&] { ++changes, form.Line.Text = UCase(form.Line.Text.Get()); };
  QTest::keyClicks(Find<QLineEdit>(form), "ab");
  EXPECT_EQ(form.Line.Text, u"AB");
  EXPECT_EQ(Find<QLineEdit>(form)->text(), "AB");
  EXPECT_EQ(changes, 4);
}

TEST_F(Controls, ClicksReachTheHandlers) {
  int clicks = 0, doubleClicks = 0;
  for (auto* box : {&form.Line, &form.Lines2}) box->OnClick = [&] { ++clicks; };
  form.Go.OnClick = form.Tick.OnClick = [&] { ++clicks; };
  form.Line.OnDblClick = [&] { ++doubleClicks; };
  QTest::mouseClick(Named<QPushButton>(form, "Go"), Qt::LeftButton);
  Named<QCheckBox>(form, "Tick")->click();
  EXPECT_EQ(clicks, 2);
  for (QWidget* view :
       {static_cast<QWidget*>(Find<QLineEdit>(form)), Find<QPlainTextEdit>(form)->viewport()}) {
    QTest::mouseClick(view, Qt::LeftButton);
    QTest::mouseDClick(view, Qt::LeftButton);
    QTest::mouseRelease(view, Qt::LeftButton);
  }
  EXPECT_EQ(doubleClicks, 1);
  EXPECT_EQ(clicks, 5) << "a box that knows no double click is clicked twice";
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

TEST_F(Controls, ListsTellOnceAndOnlyWhatIsChosen) {
  int clicks = 0, doubles = 0;
  form.Plain.OnClick = [&] { ++clicks; };
  form.Plain.OnDblClick = [&] { ++doubles; };
  auto* list = List(0);
  list->setFocus();
  EXPECT_EQ(form.Plain.ListIndex, -1) << "getting the keyboard is no choice";
  ClickRow(list, 1);
  EXPECT_EQ(clicks, 1);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {},
                     list->visualRect(list->model()->index(1, 0)).center());
  EXPECT_EQ(doubles, 1);
  form.Plain.RemoveItem(0);
  EXPECT_EQ(form.Plain.ListIndex, -1);
  EXPECT_FALSE(list->selectionModel()->hasSelection());

  std::set<int> seen;
  form.Many.OnClick = [&] { seen = form.Many.Selected; };
  ClickRow(List(2), 1);
  EXPECT_EQ(seen, std::set{1}) << "the selection is there when the handler runs";
  std::vector<std::pair<int, bool>> ticked;
  form.Ticks.ItemChecked = [&](int row) { ticked.emplace_back(row, form.Ticks.IsSelected(row)); };
  List(1)->model()->setData(List(1)->model()->index(1, 0), Qt::Checked, Qt::CheckStateRole);
  form.Ticks.Select(1, true);
  form.Ticks.Select(1, false);
  EXPECT_EQ(ticked, (std::vector{std::pair(1, true), std::pair(1, false)}));
}

TEST_F(Controls, AListFollowsAnyChangeOfItsRows) {
  const std::vector<std::vector<String>> states{
      {},           {u"a", u"b", u"c"}, {u"a", u"c"}, {u"x", u"x", u"a", u"c"},
      {u"x", u"a"}, {u"a", u"x"},       {u"q"}};
  for (const auto& state : states) {
    form.Plain.List = state;
    std::vector<String> shown;
    for (int row = 0; row < List(0)->model()->rowCount(); ++row)
      shown.push_back(FromQt(List(0)->model()->index(row, 0).data().toString()));
    EXPECT_EQ(shown, state);
  }
}

TEST_F(Controls, AListOf50000RowsTakesNoTime) {
  std::vector<String> rows;
  std::set<int> every, some;
  for (int i = 0; i < 50'000; ++i) {
    rows.push_back(u"file " + Str(i));
    every.insert(i);
    if (i % 500 == 0) some.insert(i);
  }
  for (ListBox* list : {&form.Plain, &form.Ticks, &form.Many}) {
    const auto start = windows.Milliseconds();
    list->List = rows;
    list->Selected = every;
    QApplication::processEvents();
    list->AddItem(u"last");
    EXPECT_LT(windows.Milliseconds() - start, 1000);
  }
  EXPECT_EQ(List(2)->selectionModel()->selectedIndexes().size(), 50'000);
  form.Many.Selected = some;
  EXPECT_EQ(List(2)->selectionModel()->selectedIndexes().size(), 100);
}

TEST_F(Controls, ADiffShowsEachRowInTheColourOfItsKind) {
  using Kind = DiffList::Kind;
  auto* view = windows.WindowOf(form)->findChildren<QPlainTextEdit*>().constLast();
  for (int round = 0; round < 2; ++round) {
    form.Diff.Rows = std::vector<DiffList::Row>{};
    form.Diff.Rows = std::vector<DiffList::Row>{{Kind::Heading, u"a.txt"},
                                                {Kind::Plain, u"same"},
                                                {Kind::Removed, u"old\r\nline"},
                                                {Kind::Added, u""}};
    EXPECT_EQ(view->toPlainText(), "a.txt\n  same\n- old  line\n+ ");
    std::set<QRgb> colours;
    for (QTextBlock block = view->document()->firstBlock(); block.isValid(); block = block.next())
      if (block.blockFormat().hasProperty(QTextFormat::BackgroundBrush))
        colours.insert(block.blockFormat().background().color().rgb());
    EXPECT_EQ(colours.size(), 2u);
  }
  QTest::keyClick(view, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(view, "x");
  EXPECT_TRUE(view->textCursor().hasSelection());
}

TEST_F(Controls, HiddenControlsLeaveNoGap) {
  const auto height = [&] {
    QApplication::processEvents();
    return windows.WindowOf(form)->layout()->totalSizeHint().height();
  };
  const int full = height();
  form.First.Visible = form.Second.Visible = false;
  EXPECT_LT(height(), full - 40) << "the frame of the group goes with its controls";
  EXPECT_FALSE(Find<QGroupBox>(form)->isVisible()) << "and the one round it";
  form.First.Visible = form.Second.Visible = true;
  EXPECT_EQ(height(), full);
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
