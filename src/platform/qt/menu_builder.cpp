#include "platform/qt/menu_builder.h"

#include <QApplication>
#include <QFontMetrics>
#include <QScreen>
#include <optional>

#include "platform/qt/control_views.h"
#include "platform/qt/strings.h"

namespace {

// In average characters.
constexpr int kWidest = 60;
// Of those that are looked at.
constexpr int kLongest = 1000;

// The part of a caption that a menu can show: a long one loses its middle. None when it fits.
std::optional<QString> Shortened(QString caption) {
  const QFontMetrics metrics(QApplication::font("QMenu"));
  const int room = std::min(metrics.averageCharWidth() * kWidest,
                            QGuiApplication::primaryScreen()->availableSize().width() / 2);
  caption.replace(QLatin1String("&&"), QLatin1String("&"));
  if (caption.size() > kLongest)
    caption = caption.left(kLongest / 2) + caption.right(kLongest / 2);
  else if (metrics.horizontalAdvance(caption) <= room)
    return {};
  return metrics.elidedText(caption, Qt::ElideMiddle, room).replace(u'&', QLatin1String("&&"));
}

// The key stands beside the caption only; the form itself sees the key and runs the command.
QString WithKey(const QString& caption, const MenuItem& item) {
  if (item.Shortcut.empty()) return caption;
  const QKeySequence keys(ToQt(item.Shortcut), QKeySequence::PortableText);
  return caption + QLatin1Char('\t') + keys.toString(QKeySequence::NativeText);
}

void ShowCaption(QAction& action, const MenuItem& item) {
  // Behind a tab Qt would look for a key.
  QString caption = ToQt(item.Caption).replace(u'\t', u' ');
  const auto shortened = Shortened(caption);
  action.setText(WithKey(shortened.value_or(caption), item));
  caption.replace(QLatin1String("&&"), QLatin1String("&"));
  action.setToolTip(shortened ? PlainToolTip(FromQt(caption)) : QString());
}

void BindItem(QAction& action, MenuItem& item, Bindings& bindings) {
  bindings.Follow(item.Caption, [&] { ShowCaption(action, item); });
  bindings.Follow(item.Visible, [&] { action.setVisible(item.Visible); });
  bindings.Follow(item.Enabled, [&] { action.setEnabled(item.Enabled); });
}

QMenu* MakeMenu(MenuItem& item, QWidget& parent, Bindings& bindings) {
  auto* menu = new QMenu(&parent);
  FillMenu(*menu, item.Items, bindings);
  BindItem(*menu->menuAction(), item, bindings);
  bindings.On(menu, &QMenu::aboutToShow, [&item] {
    if (item.OnOpen) item.OnOpen();
  });
  return menu;
}

QAction* MakeEntry(MenuItem& item, QMenu& menu, Bindings& bindings) {
  auto* action = new QAction(&menu);
  BindItem(*action, item, bindings);
  action->setSeparator(item.Separator);
  // Qt would guess a role from the caption and move the entry on some systems.
  action->setMenuRole(QAction::NoRole);
  action->setCheckable(item.Checkable);
  bindings.Follow(item.Checked, [&item, action] { action->setChecked(item.Checked); });
  bindings.On(action, &QAction::triggered, [&item, action] {
    // Qt has turned the mark; whether it turns is for the handler to say.
    action->setChecked(item.Checked);
    item.Click();
  });
  return action;
}

}  // namespace

void FillMenu(QMenu& menu, const std::vector<MenuItem*>& items, Bindings& bindings) {
  menu.setToolTipsVisible(true);
  // Two separators may stand together where what is between them is hidden.
  menu.setSeparatorsCollapsible(true);
  for (MenuItem* item : items) {
    if (item->Items.empty())
      menu.addAction(MakeEntry(*item, menu, bindings));
    else
      menu.addMenu(MakeMenu(*item, menu, bindings));
  }
}

void BuildMenuBar(QMenuBar& bar, const std::vector<MenuItem*>& menus, Bindings& bindings) {
  for (MenuItem* item : menus) bar.addMenu(MakeMenu(*item, bar, bindings));
}
