// Tool bars and status bars.

#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QStyleOptionToolButton>
#include <QToolBar>
#include <QToolButton>

#include "platform/qt/control_views.h"
#include "platform/qt/icons.h"
#include "platform/qt/menu_builder.h"
#include "platform/qt/strings.h"

namespace {

constexpr int kToolIconSize = 22;

QString WithoutMnemonic(const String& caption) {
  QString text = ToQt(caption);
  return text.remove(u'&').remove(QStringLiteral("..."));
}

// Without the key that stands in brackets at the end.
QString WithoutKey(const String& tip) {
  const QString text = ToQt(tip);
  const auto bracket = text.endsWith(u')') ? text.lastIndexOf(QLatin1String(" (")) : -1;
  return bracket > 0 ? text.first(bracket) : text;
}

QAction* MakeTool(CommandButton& button, QToolBar& bar, Bindings& bindings) {
  auto* action = new QAction(&bar);
  const auto name = [&button, action] {
    const QString caption = button.Caption.Get().empty() ? WithoutKey(button.ToolTipText)
                                                         : WithoutMnemonic(button.Caption);
    // Nobody sees it, but it is the button's name. "&" would mark a letter.
    action->setText(QString(caption).replace(u'&', QStringLiteral("&&")));
    action->setToolTip(button.ToolTipText.Get().empty() ? PlainToolTip(FromQt(caption))
                                                        : PlainToolTip(button.ToolTipText));
  };
  bindings.Follow(button.Caption, name);
  bindings.Follow(button.ToolTipText, name);
  bindings.Follow(button.Icon, [&button, action] { action->setIcon(NamedIcon(button.Icon)); });
  bindings.Follow(button.Visible, [&button, action] { action->setVisible(button.Visible); });
  bindings.Follow(button.Enabled, [&button, action] { action->setEnabled(button.Enabled); });
  bindings.On(action, &QAction::triggered, [&button] { button.Click(); });
  return action;
}

// Shortens its text where there is no room, and never asks for any.
class MessageLabel : public QLabel {
 public:
  MessageLabel() {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    setIndent(4);
  }
  void Show(const QString& text) {
    text_ = text;
    Elide();
  }

 protected:
  void resizeEvent(QResizeEvent*) override { Elide(); }

 private:
  void Elide() { setText(fontMetrics().elidedText(text_, Qt::ElideMiddle, width() - 8)); }
  QString text_;
};

// A panel keeps the greatest width it has had, so that its neighbours stand still.
void KeepWidth(QWidget* panel) {
  panel->setMinimumWidth(std::max(panel->minimumWidth(), panel->sizeHint().width()));
}

// Offers choices. Its own small mark stands behind the text instead of the style's, which would be
// drawn into the text's corner.
class ChoiceButton : public QToolButton {
 public:
  explicit ChoiceButton(QMenu* menu) {
    setAutoRaise(true);
    setToolButtonStyle(Qt::ToolButtonTextOnly);
    setFocusPolicy(Qt::TabFocus);
    setPopupMode(InstantPopup);
    menu->setParent(this, menu->windowFlags());
    setMenu(menu);
    // The button hears nothing of the mouse while the menu is open, and would stay raised.
    connect(menu, &QMenu::aboutToHide, this, [this] {
      setAttribute(Qt::WA_UnderMouse, rect().contains(mapFromGlobal(QCursor::pos())));
      update();
    });
  }
  void Show(const QString& text) {
    // "&" would mark a letter.
    setText(QString(text).replace(u'&', QStringLiteral("&&")) + QStringLiteral(" \u25BE"));
    setAccessibleName(text);
  }

 protected:
  void initStyleOption(QStyleOptionToolButton* option) const override {
    QToolButton::initStyleOption(option);
    option->features &= ~QStyleOptionToolButton::HasMenu;
  }
};

QWidget* MakePanel(StatusPanel& panel, Bindings& bindings) {
  QWidget* view = nullptr;
  if (panel.Choices.empty()) {
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setMargin(3);
    bindings.Follow(panel.Text, [&panel, label] {
      label->setText(ToQt(panel.Text));
      KeepWidth(label);
    });
    view = label;
  } else {
    auto* menu = new QMenu;
    FillMenu(*menu, panel.Choices, bindings);
    auto* button = new ChoiceButton(menu);
    bindings.Follow(panel.Text, [&panel, button] {
      button->Show(ToQt(panel.Text));
      KeepWidth(button);
    });
    view = button;
  }
  bindings.Follow(panel.ToolTipText,
                  [&panel, view] { view->setToolTip(PlainToolTip(panel.ToolTipText)); });
  return view;
}

}  // namespace

QWidget* MakeView(ToolBar& bar, Bindings& bindings) {
  auto* view = new QToolBar;
  view->setAccessibleName(QStringLiteral("Tool bar"));
  view->setMovable(false);
  view->setFloatable(false);
  view->setContextMenuPolicy(Qt::PreventContextMenu);
  view->setToolButtonStyle(Qt::ToolButtonIconOnly);
  view->setIconSize({kToolIconSize, kToolIconSize});
  for (CommandButton* button : bar.Buttons) {
    if (button)
      view->addAction(MakeTool(*button, *view, bindings));
    else
      view->addSeparator();
  }
  return view;
}

QWidget* MakeView(StatusBar& bar, Bindings& bindings) {
  auto* view = new QStatusBar;
  view->setAccessibleName(QStringLiteral("Status bar"));
  auto* message = new MessageLabel;
  view->addWidget(message, 1);
  bindings.Follow(bar.Message, [&bar, message] { message->Show(ToQt(bar.Message)); });
  for (StatusPanel* panel : bar.Panels) view->addPermanentWidget(MakePanel(*panel, bindings));
  return view;
}
