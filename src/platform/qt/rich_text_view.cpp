// Puts the widget of an edit control into the window of a form.

#include <QContextMenuEvent>
#include <QMenu>
#include <QPointer>

#include "platform/qt/control_views.h"
#include "platform/qt/menu_builder.h"
#include "platform/qt/qt_rich_text_box.h"

QWidget* MakeView(RichTextBox& box, Bindings& bindings) {
  QWidget* const view = dynamic_cast<QtRichTextBox&>(box).Widget();
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
  bindings.AtEnd([view = QPointer(view)] {
    if (view) view->setParent(nullptr);
  });
  return view;
}
