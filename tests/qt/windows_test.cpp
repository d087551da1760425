#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>

#include "form_fixture.h"
#include "text/runtime_error.h"

namespace {

using Windows = FormTest;

TEST_F(Windows, AModalWindowAnswersToKeysButtonsAndFrame) {
  struct Case {
    const char* What;
    std::function<void(QWidget*, SmallDialog&)> Act;
    StringView Answer;
  };
  const auto key = [](Qt::Key pressed) {
    return [pressed](QWidget* window, SmallDialog&) {
      QTest::keyClick(window->findChild<QLineEdit*>(), pressed);
    };
  };
  const std::vector<Case> cases{
      {"Return", key(Qt::Key_Return), u"ok"},
      {"Enter", key(Qt::Key_Enter), u"ok"},
      {"Escape", key(Qt::Key_Escape), u"cancel"},
      {"close box", [](QWidget* window, SmallDialog&) { window->close(); }, u"closed"},
      {"Return on another button",
       [](QWidget* window, SmallDialog&) {
         for (auto* button : window->findChildren<QPushButton*>())
           if (!button->isDefault()) QTest::keyClick(button, Qt::Key_Return);
       },
       u"cancel"},
      {"Escape without a button that works",
       [](QWidget* window, SmallDialog& form) {
         form.Cancel.Enabled = false;
         QTest::keyClick(window, Qt::Key_Escape);
       },
       u"closed"},
      {"Hide", [](QWidget*, SmallDialog& form) { form.Hide(); }, u""},
      {"Unload", [](QWidget*, SmallDialog& form) { form.Unload(); }, u""},
      {"default button that can't be pressed",
       [](QWidget* window, SmallDialog& form) {
         form.Ok.Visible = false;
         QTest::keyClick(window->findChild<QLineEdit*>(), Qt::Key_Return);
         EXPECT_TRUE(form.Visible);
         form.Hide();
       },
       u""},
  };
  for (const auto& test : cases) {
    SmallDialog form(windows);
    Meanwhile([&] { test.Act(windows.WindowOf(form), form); });
    form.ShowModal();
    EXPECT_EQ(form.Answer, test.Answer) << test.What;
    EXPECT_FALSE(form.Visible) << test.What;
  }
}

TEST_F(Windows, ReturnInABoxOfManyLinesEndsALine) {
  struct Lines : SmallDialog {
    explicit Lines(WindowSystem& system) : SmallDialog(system) { Text1.MultiLine = true; }
  };
  Lines form(windows);
  form.Show();
  auto* box = Find<QPlainTextEdit>(form);
  auto* ok = Named<QPushButton>(form, "&OK");
  windows.WindowOf(form)->activateWindow();
  windows.DoEvents();
  box->setFocus();
  EXPECT_FALSE(ok->isDefault()) << "no frame that promises what Return does not do";
  QTest::keyClick(box, Qt::Key_Return);
  EXPECT_EQ(form.Text1.Text.Get(), u"\r\n");
  EXPECT_EQ(form.Answer, u"");
  Named<QPushButton>(form, "C&ancel")->setFocus();
  ok->setFocus();
  EXPECT_TRUE(ok->isDefault());
  form.Text1.Locked = true;
  box->setFocus();
  EXPECT_TRUE(ok->isDefault()) << "nothing is typed there";
  form.Text1.Locked = false;
  QTest::keyClick(box, Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(form.Answer, u"ok");
  EXPECT_EQ(form.Text1.Text.Get(), u"\r\n");
}

TEST_F(Windows, AWindowKeepsItsValuesWhenHiddenAndLoadsAnewWhenUnloaded) {
  SmallDialog form(windows);
  form.Show();
  QTest::keyClicks(Find<QLineEdit>(form), "12");
  form.Hide();
  QWidget* window = windows.WindowOf(form);
  form.Show();
  EXPECT_EQ(windows.WindowOf(form), window);
  EXPECT_EQ(Find<QLineEdit>(form)->text(), "12");
  form.Unload();
  EXPECT_EQ(windows.WindowOf(form), nullptr);
  form.Show();
  EXPECT_EQ(Find<QLineEdit>(form)->text(), "12");
}

TEST_F(Windows, ModalWindowsNest) {
  SmallDialog outer(windows);
  SmallDialog inner(windows);
  std::vector<String> order;
  outer.Ok.OnClick = [&] {
    Meanwhile([&] {
      // The outer one ends while the inner one still waits.
      outer.Hide();
      order.push_back(u"outer hidden");
      Meanwhile([&] { inner.Ok.Click(); });
    });
    inner.ShowModal();
    order.push_back(u"inner done");
  };
  Meanwhile([&] { outer.Ok.Click(); });
  outer.ShowModal();
  order.push_back(u"outer done");
  EXPECT_EQ(order, (std::vector<String>{u"outer hidden", u"inner done", u"outer done"}));
}

TEST_F(Windows, AFormMayBeDestroyedWhileItIsShown) {
  auto modeless = std::make_unique<SmallDialog>(windows);
  modeless->Show();
  QPointer<QWidget> window = windows.WindowOf(*modeless);
  modeless.reset();
  EXPECT_TRUE(!window || !window->isVisible());
  // From a handler of the window's own button, inside its modal loop.
  auto* form = new SmallDialog(windows);
  form->Cancel.OnClick = [form] { form->Unload(); };
  Meanwhile([&] { Named<QPushButton>(*form, "C&ancel")->click(); });
  form->ShowModal();
  Meanwhile([form] { delete form; });
  windows.Show(*form);
  windows.Wait(1);
}

TEST_F(Windows, AnErrorInAHandlerIsToldAndTheWindowGoesOn) {
  SmallDialog form(windows);
  form.Ok.OnClick = [] { throw RuntimeError(kPathNotFound, "There is no folder /gone."); };
  QString told;
  Meanwhile([&] {
    Meanwhile([&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      told = box->text();
      box->accept();
    });
    Named<QPushButton>(form, "&OK")->click();
    EXPECT_TRUE(form.Visible);
    form.Cancel.Click();
  });
  form.ShowModal();
  EXPECT_EQ(told, "There is no folder /gone.");
  EXPECT_EQ(form.Answer, u"cancel");
}

TEST_F(Windows, SizeTitleAndOrderOfTheKeyboard) {
  SmallDialog form(windows);
  form.Columns = 70;
  form.Lines = 20;
  form.Caption = u"a[*].txt";
  form.Show();
  windows.DoEvents();
  QWidget* window = windows.WindowOf(form);
  EXPECT_TRUE(window->isVisible());
  EXPECT_FALSE(window->isModal());
  EXPECT_EQ(window->width(), 70 * window->fontMetrics().averageCharWidth());
  EXPECT_EQ(window->height(), 20 * window->fontMetrics().lineSpacing());
  EXPECT_EQ(window->windowTitle(), "a[*][*].txt") << "Qt shows the pair as one";
  auto* text = Find<QLineEdit>(form);
  EXPECT_EQ(window->focusWidget(), text) << "the first input control";
  EXPECT_EQ(Find<QLabel>(form)->buddy(), text);
  std::vector<QWidget*> order;
  for (QWidget* next = text; order.size() < 3; next = next->nextInFocusChain())
    if (next->focusPolicy() & Qt::TabFocus) order.push_back(next);
  EXPECT_EQ(order, (std::vector<QWidget*>{text, Named<QPushButton>(form, "&OK"),
                                          Named<QPushButton>(form, "C&ancel")}));
}

TEST_F(Windows, AProgressWindowIsClosedByItsCancelButtonAlone) {
  struct Progress : SmallDialog {
    using SmallDialog::SmallDialog;
    Frame Style() const override { return Frame::Progress; }
  };
  Progress form(windows);
  form.Show();
  form.Cancel.Visible = false;
  windows.WindowOf(form)->close();
  QTest::keyClick(windows.WindowOf(form), Qt::Key_Escape);
  EXPECT_TRUE(form.Visible);
  form.Cancel.Visible = true;
  windows.WindowOf(form)->close();
  EXPECT_EQ(form.Answer, u"cancel");
  EXPECT_FALSE(windows.WindowOf(form)->windowFlags() & Qt::WindowCloseButtonHint);
}

TEST_F(Windows, QuitEndsTheLoopsAndKeepsItsStatus) {
  SmallDialog form(windows);
  bool returned = false;
  Meanwhile([&] {
    Meanwhile([&] { windows.Quit(2); });
    form.ShowModal();
    returned = true;
  });
  EXPECT_EQ(windows.Run(), 2);
  EXPECT_TRUE(returned);
  EXPECT_FALSE(form.Visible);
  EXPECT_EQ(windows.Run(), 2) << "a program that has ended does not start again";
}

TEST_F(Windows, ATimerStartsAnewAndMayEndItself) {
  auto timer = windows.CreateTimer();
  int calls = 0;
  timer->SetInterval(20);
  timer->OnTimer = [&] {
    ++calls;
    timer.reset();
  };
  EXPECT_FALSE(timer->Enabled());
  timer->SetEnabled(true);
  for (int i = 0; i < 200 && calls == 0; ++i) windows.Wait(20);
  windows.Wait(50);
  EXPECT_EQ(calls, 1);
}

TEST_F(Windows, TheClipboardHasTheLineEndsOfOtherPrograms) {
  auto& clipboard = windows.Clipboard();
  clipboard.SetText(u"one\r\ntwo\nthree\r\n");
  EXPECT_EQ(QApplication::clipboard()->text(), "one\ntwo\nthree\n");
  EXPECT_EQ(clipboard.GetText(), u"one\r\ntwo\r\nthree\r\n");
  QApplication::clipboard()->setText("a\r\nb\nc");
  EXPECT_EQ(clipboard.GetText(), u"a\r\nb\nc");
  clipboard.Clear();
  EXPECT_FALSE(clipboard.HasText());
}

}  // namespace
