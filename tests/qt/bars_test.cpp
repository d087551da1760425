#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
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

TEST_F(Bars, MenusFollowTheirItems) {
  const auto actions = FileMenu()->actions();
  ASSERT_EQ(actions.size(), 4);
  EXPECT_TRUE(actions[0]->text().endsWith("\tCtrl+S"));
  EXPECT_TRUE(actions[1]->isSeparator());
  form.Save.Caption = u"S&tore";
  form.Save.Enabled = false;
  form.Wrap.Checked = true;
  form.Deep.Visible = false;
  EXPECT_EQ(actions[0]->text(), "S&tore\tCtrl+S");
  EXPECT_FALSE(actions[0]->isEnabled());
  EXPECT_TRUE(actions[2]->isChecked());
  EXPECT_FALSE(actions[3]->isVisible());
}

TEST_F(Bars, AnEntryRunsItsHandlerAndKeepsTheMarkThatTheHandlerLeaves) {
  int opened = 0, clicked = 0;
  form.File.OnOpen = [&] { ++opened; };
  form.Wrap.OnClick = [&] { ++clicked; };
  Q_EMIT FileMenu()->aboutToShow();
  QAction* wrap = FileMenu()->actions()[2];
  wrap->trigger();
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(clicked, 1);
  EXPECT_FALSE(wrap->isChecked()) << "the handler has not turned it";
  form.Wrap.OnClick = [&] { form.Wrap.Checked = !form.Wrap.Checked; };
  wrap->trigger();
  EXPECT_TRUE(wrap->isChecked());
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
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_A);
  form.Swallow = 'B';
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_B);
  EXPECT_EQ(form.Keys, u"^ZAB");
  EXPECT_EQ(atEditor, u"ZA");
  EXPECT_EQ(form.Editor->Text(), u"a");
  // What a command does while events run may put another filter in front of the form's.
  QObject other;
  form.Keys.clear();
  form.OnKey = [&] { qApp->installEventFilter(&other); };
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_C);
  form.OnKey = nullptr;
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_C);
  EXPECT_EQ(form.Keys, u"CC");
  form.FindText.SetFocus();
  windows.DoEvents();
  EXPECT_EQ(form.ActiveControl.Get(), &form.FindText);
}

TEST_F(Bars, AHiddenPanelLeavesItsRoomToTheText) {
  Window()->resize(700, 500);
  auto* editor = dynamic_cast<QtRichTextBox&>(*form.Editor).Widget();
  const auto show = [&](bool visible) {
    form.FindWhat.Visible = visible;
    form.FindText.Visible = visible;
    windows.DoEvents();
    return editor->height();
  };
  const int with = show(true);
  const int without = show(false);
  EXPECT_LT(with, without);
  EXPECT_EQ(without, Window()->centralWidget()->height());
  EXPECT_EQ(show(true), with);
}

TEST_F(Bars, AMenuLeavesTheSelectionOfATextBox) {
  Window()->activateWindow();
  form.FindText.Text = u"needle";
  form.FindText.SetFocus();
  windows.DoEvents();
  form.FindText.SelectAll();
  auto* line = Find<QLineEdit>(form);
  QFocusEvent out(QEvent::FocusOut, Qt::MenuBarFocusReason);
  QApplication::sendEvent(line, &out);
  EXPECT_EQ(line->selectedText(), "needle");
  EXPECT_EQ(form.FindText.SelText(), u"needle");
}

TEST_F(Bars, TextPastedIntoALineKeepsItsLines) {
  QGuiApplication::clipboard()->setText("multi\nline");
  auto* line = Find<QLineEdit>(form);
  QTest::keyClick(line, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(form.FindText.Text.Get(), u"multi\r\nline");
}

TEST_F(Bars, ToolButtonsShowIconsAndTellTheirNames) {
  auto* tools = Find<QToolBar>(form);
  EXPECT_EQ(tools->toolButtonStyle(), Qt::ToolButtonIconOnly);
  QAction* find = tools->actions().constFirst();
  EXPECT_EQ(find->toolTip(), "Find Text");
  form.Find.ToolTipText = u"Searches";
  EXPECT_EQ(find->toolTip(), "Searches");
  EXPECT_TRUE(tools->actions().at(1)->isSeparator());
  int clicked = 0;
  form.Find.OnClick = [&] { ++clicked; };
  find->trigger();
  form.Find.Enabled = false;
  find->trigger();
  EXPECT_EQ(clicked, 1);
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

TEST_F(Bars, TheEditorOutlivesItsWindow) {
  form.Editor->SetText(u"kept");
  form.Unload();
  windows.DoEvents();
  EXPECT_EQ(form.Editor->Text(), u"kept");
  form.Show();
  EXPECT_TRUE(Window()->findChild<QPlainTextEdit*>()->isVisible());
}

TEST_F(Bars, AMainWindowIsClosedByItsFrameAndNotByEscape) {
  QTest::keyClick(Window(), Qt::Key_Escape);
  EXPECT_EQ(form.Closed, 0);
  Window()->close();
  EXPECT_EQ(form.Closed, 1);
  EXPECT_TRUE(Window()->isVisible());
}

TEST_F(Bars, HiddenBarsStayHidden) {
  form.Unload();
  form.Tools.Visible = false;
  form.Show();
  EXPECT_FALSE(Find<QToolBar>(form)->isVisible());
  form.Tools.Visible = true;
  EXPECT_TRUE(Find<QToolBar>(form)->isVisible());
}

}  // namespace
