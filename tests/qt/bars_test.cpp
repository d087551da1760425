#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include "form_fixture.h"
#include "platform/qt/qt_rich_text_box.h"

namespace {

struct MainForm : Form {
  explicit MainForm(WindowSystem& system) : Form(system), Editor(system.CreateRichTextBox()) {
    Save.Shortcut = u"Ctrl+S";
    Dash.Separator = true;
    Wrap.Checkable = true;
    Deep.Items = {&Leaf};
    File.Items = {&Save, &Dash, &Wrap, &Deep};
    Find.Caption = u"&Find Text...";
    Find.Icon = u"find";
    Tools.Buttons = {&Find, nullptr, &Undo};
    Ends.Text = u"Unix & co";
    Ends.Choices = {&Unix, &Dos};
    Bar.Panels = {&Ends, &Place};
    Editor->ContextMenu = &File;
  }
  Frame Style() const override { return Frame::Main; }
  std::vector<MenuItem*> Menus() override { return {&File}; }
  Layout Content() override { return Column({Tools, *Editor, Row({FindWhat, FindText}), Bar}); }
  void DropFiles(const std::vector<String>& paths) override { Dropped = paths; }
  void CloseByFrame() override { ++Closed; }

  MenuItem File{u"&File"}, Save{u"&Save"}, Dash, Wrap{u"&Word Wrap"}, Deep{u"Deep"}, Leaf{u"Leaf"};
  MenuItem Unix{u"Unix"}, Dos{u"Windows"};
  CommandButton Find, Undo;
  ToolBar Tools;
  StatusPanel Ends, Place;
  StatusBar Bar;
  std::unique_ptr<RichTextBox> Editor;
  Label FindWhat;
  TextBox FindText;
  void KeyDown(KeyEvent& key) override {
    if (key.Key == 0) return;
    if (key.Control) Keys += u'^';
    Keys += static_cast<char16_t>(key.Key);
    key.Handled = key.Key == Swallow;
    if (OnKey) OnKey();
  }

  std::vector<String> Dropped;
  String Keys;
  int Swallow = 0;
  std::function<void()> OnKey;
  int Closed = 0;
};

class Bars : public FormTest {
 protected:
  Bars() { form.Show(); }
  QMainWindow* Window() { return qobject_cast<QMainWindow*>(windows.WindowOf(form)); }
  QMenu* FileMenu() { return Window()->menuBar()->actions().constFirst()->menu(); }
  MainForm form{windows};
};

TEST_F(Bars, LongCaptionsLoseTheirMiddleAndHaveATip) {
  QAction* const action = FileMenu()->actions().constFirst();
  const QFontMetrics metrics(FileMenu()->font());
  const QString tail = "&& <b>co</b>";
  const struct {
    QString Caption;
    bool Fits;
  } cases[] = {
      {"Clean && <b>co</b>", true},
      {"Clean\tup && <b>co</b>", true},
      {"Clean " + QString(100, u'W') + tail, false},
      {"Clean " + QString(300, u'&') + tail, false},
      {"Clean " + QString("\U0001F600").repeated(1501) + tail, false},
      {"Clean " + QString(200'000, u'i') + tail, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Caption.left(30).toStdString());
    form.Save.Caption = FromQt(c.Caption);
    QString shown = action->text();
    EXPECT_TRUE(shown.startsWith("Clean ")) << "a tab would make a key of the rest";
    EXPECT_TRUE(shown.endsWith(tail + "\tCtrl+S"));
    EXPECT_EQ(shown.contains(QChar(0x2026)), !c.Fits);
    EXPECT_TRUE(shown.isValidUtf16());
    EXPECT_LT(metrics.horizontalAdvance(shown.replace("&&", "&")),
              QGuiApplication::primaryScreen()->size().width());
    if (c.Fits) continue;
    EXPECT_TRUE(action->toolTip().contains("Clean"));
    EXPECT_FALSE(action->toolTip().contains("<b>"));
    EXPECT_LT(action->toolTip().size(), 6000);
  }
  EXPECT_TRUE(FileMenu()->toolTipsVisible());
}

TEST_F(Bars, MenusFollowTheirItemsAndRunTheirHandlers) {
  const auto actions = FileMenu()->actions();
  ASSERT_EQ(actions.size(), 4);
  EXPECT_TRUE(actions[1]->isSeparator());
  form.Save.Caption = u"S&tore";
  form.Save.Enabled = false;
  form.Deep.Visible = false;
  EXPECT_EQ(actions[0]->text(), "S&tore\tCtrl+S");
  EXPECT_FALSE(actions[0]->isEnabled());
  EXPECT_FALSE(actions[3]->isVisible());
  int opened = 0;
  form.File.OnOpen = [&] { ++opened; };
  Q_EMIT FileMenu()->aboutToShow();
  EXPECT_EQ(opened, 1);
  // The mark is the handler's.
  for (const bool turns : {false, true}) {
    form.Wrap.OnClick = [&] { form.Wrap.Checked = turns; };
    actions[2]->trigger();
    EXPECT_EQ(actions[2]->isChecked(), turns);
  }
}

TEST_F(Bars, TheFormSeesEachKeyFirstAndMaySwallowIt) {
  Window()->activateWindow();
  form.Editor->SetFocus();
  windows.DoEvents();
  EXPECT_EQ(form.ActiveControl.Get(), form.Editor.get());
  String atEditor;
  form.Editor->OnKeyDown = [&](KeyEvent& key) {
    if (key.Key != 0) atEditor += static_cast<char16_t>(key.Key);
  };
  const auto press = [](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  };
  press(Qt::Key_Z, Qt::ControlModifier);
  press(Qt::Key_A);
  form.Swallow = 'B';
  press(Qt::Key_B);
  // What a command does while events run may put another filter in front of the form's.
  QObject other;
  form.OnKey = [&] { qApp->installEventFilter(&other); };
  press(Qt::Key_C);
  // A command that fails is told of, and the next key works.
  form.OnKey = [] { throw std::runtime_error("failed"); };
  QString told;
  Meanwhile([&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    told = box->text();
    box->accept();
  });
  press(Qt::Key_D);
  EXPECT_EQ(told, "failed");
  Window()->activateWindow();
  windows.DoEvents();
  form.OnKey = nullptr;
  press(Qt::Key_E);
  EXPECT_EQ(form.Keys, u"^ZABCDE");
  EXPECT_EQ(atEditor, u"ZACDE");
  EXPECT_EQ(form.Editor->Text(), u"acde");
  form.FindText.SetFocus();
  windows.DoEvents();
  EXPECT_EQ(form.ActiveControl.Get(), &form.FindText);
}

TEST_F(Bars, AHiddenPanelLeavesItsRoomToTheText) {
  Window()->resize(700, 500);
  auto* editor = dynamic_cast<QtRichTextBox&>(*form.Editor).Widget();
  const auto show = [&](bool visible) {
    form.FindWhat.Visible = form.FindText.Visible = visible;
    windows.DoEvents();
    return editor->height();
  };
  const int with = show(true);
  const int without = show(false);
  EXPECT_LT(with, without);
  EXPECT_EQ(without, Window()->centralWidget()->height());
  EXPECT_EQ(show(true), with);
}

// Line ends are the program's in the box and those of other programs outside.
TEST_F(Bars, KeysThatEditALine) {
  const struct {
    Qt::Key Key;
    Qt::KeyboardModifiers Modifiers;
    StringView After;
    const char* Clipboard;
  } cases[] = {
      {Qt::Key_V, Qt::ControlModifier, u"am\r\nld", "m\nl"},
      {Qt::Key_C, Qt::ControlModifier, u"ab\r\ncd", "b\nc"},
      {Qt::Key_X, Qt::ControlModifier, u"ad", "b\nc"},
      {Qt::Key_Delete, Qt::ShiftModifier, u"ad", "b\nc"},
      {Qt::Key_Delete, {}, u"ad", "m\nl"},
      {Qt::Key_Backspace, {}, u"ad", "m\nl"},
  };
  auto* line = Find<QLineEdit>(form);
  for (const bool locked : {false, true})
    for (const auto& c : cases) {
      QGuiApplication::clipboard()->setText("m\nl");
      form.FindText.Text = u"ab\r\ncd";
      form.FindText.SelStart = 1;
      form.FindText.SelLength = 4;
      form.FindText.Locked = locked;
      QTest::keyClick(line, c.Key, c.Modifiers);
      EXPECT_EQ(form.FindText.Text.Get(), locked ? StringView(u"ab\r\ncd") : c.After);
      const bool stays = locked && c.Key != Qt::Key_C;
      EXPECT_EQ(QGuiApplication::clipboard()->text(), stays ? "m\nl" : c.Clipboard) << c.Key;
    }
  // A menu that opens leaves the selection, so that its Cut has something to cut.
  form.FindText.SelectAll();
  QFocusEvent out(QEvent::FocusOut, Qt::MenuBarFocusReason);
  QApplication::sendEvent(line, &out);
  EXPECT_EQ(line->selectedText().size(), 6);
}

TEST_F(Bars, ToolButtonsShowIconsAndTellTheirNames) {
  auto* tools = Find<QToolBar>(form);
  EXPECT_EQ(tools->toolButtonStyle(), Qt::ToolButtonIconOnly);
  const auto actions = tools->actions();
  EXPECT_TRUE(actions[1]->isSeparator());
  EXPECT_EQ(actions[0]->toolTip(), "Find Text");
  form.Find.ToolTipText = u"Searches";
  EXPECT_EQ(actions[0]->toolTip(), "Searches");
  for (const auto& [tip, name] :
       {std::pair(u"Undo (Ctrl+Z)", "Undo"), std::pair(u"(1) & more (F1)", "(1) && more"),
        std::pair(u"(x)", "(x)")}) {
    form.Undo.ToolTipText = tip;
    EXPECT_EQ(actions[2]->text(), name);
  }
  int clicked = 0;
  form.Find.OnClick = [&] { ++clicked; };
  actions[0]->trigger();
  form.Find.Enabled = false;
  actions[0]->trigger();
  EXPECT_EQ(clicked, 1);
  // A bar that is hidden before its window is shown stays hidden.
  form.Unload();
  form.Tools.Visible = false;
  form.Show();
  EXPECT_FALSE(Find<QToolBar>(form)->isVisible());
  form.Tools.Visible = true;
  EXPECT_TRUE(Find<QToolBar>(form)->isVisible());
}

TEST_F(Bars, StatusPanelsOfferTheirChoicesAndStandStill) {
  auto* panel = Find<QStatusBar>(form)->findChild<QToolButton*>();
  EXPECT_EQ(panel->text(), "Unix && co \u25BE");
  const int width = panel->minimumWidth();
  form.Ends.Text = u"x";
  EXPECT_EQ(panel->minimumWidth(), width);
  EXPECT_TRUE(panel->focusPolicy() & Qt::TabFocus);
  int chosen = 0;
  form.Dos.OnClick = [&] { ++chosen; };
  panel->menu()->actions().at(1)->trigger();
  EXPECT_EQ(chosen, 1);
  // The mouse was on the button when its menu opened, and is elsewhere when it closes.
  panel->setAttribute(Qt::WA_UnderMouse);
  QCursor::setPos(panel->mapToGlobal(QPoint(-50, -50)));
  Q_EMIT panel->menu()->aboutToHide();
  EXPECT_FALSE(panel->underMouse());
  form.Bar.Message = u"Saved";
  EXPECT_EQ(Find<QStatusBar>(form)->findChild<QLabel*>()->text(), "Saved");
}

TEST_F(Bars, FilesDroppedOnTheTextReachTheForm) {
  auto* target = Window()->centralWidget()->findChild<QPlainTextEdit*>()->viewport();
  const auto drop = [&](const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(target, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent event({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(target, &event);
  };
  drop({QUrl::fromLocalFile("/tmp/a b.txt"), QUrl("http://example.org/x"),
        QUrl::fromEncoded("file:///tmp/%E9")});
  EXPECT_EQ(form.Dropped, (std::vector<String>{u"/tmp/a b.txt", u"/tmp/\xDCE9"}));
  EXPECT_EQ(form.Editor->Text(), u"");
}

TEST_F(Bars, TheWindowIsClosedByItsFrameAndNotByEscapeAndLeavesTheEditor) {
  QTest::keyClick(Window(), Qt::Key_Escape);
  EXPECT_EQ(form.Closed, 0);
  Window()->close();
  EXPECT_EQ(form.Closed, 1);
  EXPECT_TRUE(Window()->isVisible());
  form.Editor->SetText(u"kept");
  form.Unload();
  windows.DoEvents();
  form.Show();
  EXPECT_TRUE(Window()->findChild<QPlainTextEdit*>()->isVisible());
  EXPECT_EQ(form.Editor->Text(), u"kept");
}

}  // namespace
