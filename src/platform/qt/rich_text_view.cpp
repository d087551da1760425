// Puts the widget of an edit control into the window of a form.

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>

#include "platform/qt/control_views.h"
#include "platform/qt/menu_builder.h"
#include "platform/qt/qt_rich_text_box.h"

namespace {

// The editor has keys of its own (undo, copy, ...). Where a menu entry of the window has the same
// key, the entry is meant.
class MenuKeysFirst : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::ShortcutOverride) return false;
    const auto* main = qobject_cast<QMainWindow*>(static_cast<QWidget*>(watched)->window());
    if (!main) return false;
    const QKeySequence keys(static_cast<QKeyEvent*>(event)->keyCombination());
    const auto actions = main->findChildren<QAction*>();
    const bool taken = std::any_of(actions.begin(), actions.end(), [&](const QAction* action) {
      return action->isEnabled() && action->isVisible() && action->shortcut() == keys;
    });
    if (taken) event->ignore();
    return taken;
  }
};

}  // namespace

QWidget* MakeView(RichTextBox& box, Bindings& bindings) {
  QWidget* const view = dynamic_cast<QtRichTextBox&>(box).Widget();
  auto* keys = new MenuKeysFirst;
  view->installEventFilter(keys);
  if (box.ContextMenu) {
    auto* menu = new QMenu(view);
    FillMenu(*menu, box.ContextMenu->Items, bindings);
    view->setContextMenuPolicy(Qt::CustomContextMenu);
    bindings.On(menu, &QMenu::aboutToShow, [&box] {
      if (box.ContextMenu->OnOpen) box.ContextMenu->OnOpen();
    });
    bindings.On(view, &QWidget::customContextMenuRequested,
                [view, menu](const QPoint& place) { menu->popup(view->mapToGlobal(place)); });
    bindings.AtEnd([menu = QPointer(menu)] {
      if (menu) menu->deleteLater();
    });
  }
  // The widget belongs to the box. A form that is destroyed has taken it along already.
  bindings.AtEnd([view = QPointer(view), keys] {
    delete keys;
    if (view) view->setParent(nullptr);
  });
  return view;
}
