// Labels, pictures, buttons, boxes to tick, tabs and progress bars.

#include <QCheckBox>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

#include "platform/qt/control_views.h"
#include "platform/qt/icons.h"
#include "platform/qt/strings.h"
#include "platform/qt/wrapping_label.h"

namespace {

constexpr int kPictureSize = 40;
constexpr int kButtonPadding = 14;
constexpr double kHeadingScale = 1.7;

// Draws the icon each time, so that it follows palette and scale.
class Picture : public QWidget {
 public:
  Picture() { setFixedSize(kPictureSize, kPictureSize); }
  void Show(const QIcon& icon) {
    icon_ = icon;
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    icon_.paint(&painter, rect(), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
  }

 private:
  QIcon icon_;
};

// "%p", "%v" and "%m" stand for numbers in a bar's text; parted, they stand for themselves.
QString LiteralFormat(QString text) { return text.replace(u'%', QStringLiteral("%\u200B")); }

}  // namespace

QWidget* MakeView(Label& label, Bindings& bindings) {
  if (label.WordWrap) {
    auto* view = new WrappingLabel;
    view->setTextFormat(Qt::PlainText);
    bindings.Follow(label.Caption, [&label, view] { view->ShowText(ToQt(label.Caption)); });
    return view;
  }
  auto* view = new QLabel;
  view->setTextFormat(Qt::PlainText);
  if (label.Heading) {
    QFont font = view->font();
    font.setPointSizeF(font.pointSizeF() * kHeadingScale);
    font.setBold(true);
    view->setFont(font);
  }
  bindings.Follow(label.Caption, [&label, view] { view->setText(ToQt(label.Caption)); });
  return view;
}

QWidget* MakeView(Image& image, Bindings& bindings) {
  auto* view = new Picture;
  bindings.Follow(image.Icon, [&image, view] { view->Show(NamedIcon(image.Icon)); });
  return view;
}

QWidget* MakeView(CommandButton& button, Bindings& bindings) {
  auto* view = new QPushButton;
  view->setDefault(button.Default);
  bindings.Follow(button.Caption, [&button, view] {
    const QString text = ToQt(button.Caption);
    view->setText(text);
    view->setMinimumWidth(view->fontMetrics().size(Qt::TextShowMnemonic, text).width() +
                          2 * kButtonPadding);
  });
  bindings.Follow(button.Icon, [&button, view] { view->setIcon(NamedIcon(button.Icon)); });
  bindings.On(view, &QPushButton::clicked, [&button] { button.Click(); });
  return view;
}

QWidget* MakeView(CheckBox& box, Bindings& bindings) {
  auto* view = new QCheckBox;
  bindings.Follow(box.Caption, [&box, view] { view->setText(ToQt(box.Caption)); });
  bindings.Follow(box.Value, [&box, view] {
    const QSignalBlocker quiet(view);
    view->setChecked(box.Value == 1);
  });
  bindings.On(view, &QCheckBox::toggled, [&box](bool on) { box.Value = on ? 1 : 0; });
  return view;
}

QWidget* MakeView(OptionButton& button, Bindings& bindings) {
  auto* view = new QRadioButton;
  bindings.Follow(button.Caption, [&button, view] { view->setText(ToQt(button.Caption)); });
  bindings.Follow(button.Value, [&button, view] {
    // Not quiet: the other buttons of the group hear of it that way. A button that stands alone in
    // its group could not be cleared while it excludes others.
    if (!button.Value) view->setAutoExclusive(false);
    view->setChecked(button.Value);
    view->setAutoExclusive(true);
  });
  bindings.On(view, &QRadioButton::toggled, [&button](bool on) { button.Value = on; });
  return view;
}

QWidget* MakeView(TabStrip& strip, Bindings& bindings) {
  auto* view = new QTabWidget;
  // The pages come later, so this is followed by whoever puts them in.
  bindings.Watch(strip.SelectedItem, [&strip, view] { view->setCurrentIndex(strip.SelectedItem); });
  return view;
}

QWidget* MakeView(ProgressBar& bar, Bindings& bindings) {
  auto* view = new QProgressBar;
  const auto show = [&bar, view] {
    view->setRange(0, bar.Maximum);
    view->setValue(bar.Value);
  };
  bindings.Follow(bar.Maximum, show);
  bindings.Watch(bar.Value, show);
  bindings.Follow(bar.Text, [&bar, view] {
    if (bar.Text.Get().empty())
      view->resetFormat();
    else
      view->setFormat(LiteralFormat(ToQt(bar.Text)));
  });
  return view;
}
