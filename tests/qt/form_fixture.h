#pragma once
// What the tests of windows share: a window system without a display, and ways to act as the user
// while a modal window waits.

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

#include "platform/qt/qt_window_system.h"
#include "platform/qt/strings.h"

class FormTest : public testing::Test {
 protected:
  // Runs once events are handled next, that is inside the modal window shown after this call.
  void Meanwhile(std::function<void()> act) { QTimer::singleShot(0, std::move(act)); }

  template <class Widget>
  Widget* Find(const Form& form, int index = 0) {
    const auto found = windows.WindowOf(form)->findChildren<Widget*>();
    return found.value(index, nullptr);
  }

  // The button, box or label of a caption.
  template <class Widget>
  Widget* Named(const Form& form, const QString& caption) {
    for (auto* widget : windows.WindowOf(form)->findChildren<Widget*>())
      if (widget->text() == caption) return widget;
    return nullptr;
  }

  QtWindowSystem windows;
};

// A dialog with a text box and the usual buttons.
struct SmallDialog : Form {
  explicit SmallDialog(WindowSystem& system) : Form(system) {
    Label1.Caption = u"&Width:";
    Ok.Caption = u"&OK";
    Ok.Default = true;
    Cancel.Caption = u"C&ancel";
    Cancel.Cancel = true;
    Ok.OnClick = [this] { Press(u"ok"); };
    Cancel.OnClick = [this] { Press(u"cancel"); };
  }
  Layout Content() override { return Column({Row({Label1, Text1}), Row({Stretch(), Ok, Cancel})}); }
  void CloseByFrame() override { Press(u"closed"); }
  void Press(StringView answer) {
    Answer = answer;
    Hide();
  }

  Label Label1;
  TextBox Text1;
  CommandButton Ok, Cancel;
  String Answer;
};
