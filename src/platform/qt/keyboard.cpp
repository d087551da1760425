#include "platform/qt/keyboard.h"

#include <QApplication>
#include <QWidget>

#include "platform/qt/key_codes.h"

namespace {

class KeyPreview : public QObject {
 public:
  KeyPreview(Form& form, QWidget& window) : form_(form), window_(window) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) {
      done_ = nullptr;
      return false;
    }
    // A filter that was added while the key's command let events run (a menu bar adds one for Alt)
    // moves this one along the list, and it is asked again.
    if (event == done_) return false;
    // Each key once, where it arrives first: a control passes what it does not use to its parent.
    if (watched != QApplication::focusWidget()) return false;
    if (static_cast<QWidget*>(watched)->window() != &window_) return false;
    KeyEvent key = ToKeyEvent(static_cast<QKeyEvent&>(*event));
    RunGuarded([&] { form_.KeyDown(key); });
    done_ = event;
    return key.Handled;
  }

 private:
  Form& form_;
  QWidget& window_;
  // The key whose command has run, until another event comes.
  const QEvent* done_ = nullptr;
};

}  // namespace

void FollowKeyboard(Form& form, QWidget& window, const std::vector<PlacedControl>& controls,
                    Bindings& bindings) {
  auto* preview = new KeyPreview(form, window);
  qApp->installEventFilter(preview);
  bindings.AtEnd([preview] { delete preview; });
  bindings.On(qApp, &QApplication::focusChanged, [&form, controls](QWidget*, QWidget* now) {
    // A control that has lost the keyboard to a menu or another window is still the active one.
    for (const auto& [control, view] : controls)
      if (now && (view == now || view->isAncestorOf(now))) form.ActiveControl = control;
  });
}
