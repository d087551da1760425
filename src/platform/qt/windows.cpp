#include "platform/qt/windows.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <type_traits>

namespace {

// Qt would hide a window by itself on Escape and on its close box; here the form decides.
template <class Base>
class Frame : public Base {
 public:
  Frame(FrameHandlers handlers, Qt::WindowFlags flags)
      : Base(nullptr, flags), handlers_(std::move(handlers)) {}

 protected:
  void closeEvent(QCloseEvent* event) override {
    event->ignore();
    handlers_.Close();
  }

  void keyPressEvent(QKeyEvent* event) override {
    switch (event->key()) {
      case Qt::Key_Escape:
        return handlers_.Escape();
      case Qt::Key_Return:
      case Qt::Key_Enter:
        return handlers_.Return();
      default:
        Base::keyPressEvent(event);
    }
  }

  FrameHandlers handlers_;
};

class DialogFrame : public Frame<QDialog> {
 public:
  using Frame::Frame;
  void reject() override { handlers_.Escape(); }
  void done(int) override { handlers_.Close(); }
};

// The desktop puts no frame round it.
class SplashFrame : public DialogFrame {
 public:
  SplashFrame(FrameHandlers handlers, Qt::WindowFlags flags)
      : DialogFrame(std::move(handlers), flags) {
    constexpr int kMargin = 14;
    setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
};

}  // namespace

QWidget* MakeWindow(Form::Frame style, FrameHandlers handlers) {
  constexpr auto kTitled = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint;
  switch (style) {
    case Form::Frame::Main:
      return new Frame<QMainWindow>(std::move(handlers), Qt::Window);
    case Form::Frame::Progress:
      return new DialogFrame(std::move(handlers), kTitled);
    case Form::Frame::Splash:
      return new SplashFrame(std::move(handlers),
                             Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    case Form::Frame::Dialog:
      break;
  }
  return new DialogFrame(std::move(handlers),
                         kTitled | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
}
