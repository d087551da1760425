#include "platform/qt/menu_builder.h"

#include "platform/qt/strings.h"

namespace {

// The key stands beside the caption only; the form itself sees the key and runs the command.
QString TextOf(const MenuItem& item) {
  const QString caption = ToQt(item.Caption);
  if (item.Shortcut.empty()) return caption;
  const QKeySequence keys(ToQt(item.Shortcut), QKeySequence::PortableText);
  return caption + QLatin1Char('\t') + keys.toString(QKeySequence::NativeText);
}

void BindItem(QAction& action, MenuItem& item, Bindings& bindings) {
  bindings.Follow(item.Caption, [&] { action.setText(TextOf(item)); });
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
