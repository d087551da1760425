// The lists of volumes, folders and files.

#include <QComboBox>
#include <QKeyEvent>
#include <QListWidget>
#include <QStyledItemDelegate>

#include "platform/qt/control_views.h"
#include "platform/qt/icons.h"
#include "platform/qt/list_views.h"
#include "platform/qt/strings.h"

namespace {

constexpr int kSmallIcon = 16;
constexpr int kDepthRole = Qt::UserRole;

// Moves a row to the right by its depth.
class IndentedRow : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem moved = option;
    moved.rect.setLeft(moved.rect.left() + Indent(option, index));
    QStyledItemDelegate::paint(painter, moved, index);
  }
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(Indent(option, index), 0);
  }

 private:
  static int Indent(const QStyleOptionViewItem& option, const QModelIndex& index) {
    return index.data(kDepthRole).toInt() * option.fontMetrics.averageCharWidth() * 2;
  }
};

// Return goes to the folder; it must not press the default button of the window as well.
class FolderList : public QListWidget {
 public:
  std::function<void(int)> OnEnter;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) return QListWidget::keyPressEvent(event);
    event->accept();
    if (const auto go = OnEnter) RunGuarded([&] { go(currentRow()); });
  }
};

}  // namespace

QWidget* MakeView(DriveListBox& box, Bindings& bindings) {
  auto* view = new QComboBox;
  view->setIconSize({kSmallIcon, kSmallIcon});
  const auto show = [&box, view] {
    const auto& list = box.List.Get();
    const auto found = std::find(list.begin(), list.end(), box.Drive.Get());
    const QSignalBlocker quiet(view);
    view->setCurrentIndex(found == list.end() ? -1 : static_cast<int>(found - list.begin()));
  };
  bindings.Follow(box.List, [&box, view, show] {
    {
      const QSignalBlocker quiet(view);
      view->clear();
      for (const auto& path : box.List.Get()) view->addItem(NamedIcon(u"drive"), ToQt(path));
    }
    show();
  });
  bindings.Watch(box.Drive, show);
  bindings.On(view, &QComboBox::currentIndexChanged, [&box, show](int index) {
    const auto& list = box.List.Get();
    if (index >= 0 && index < static_cast<int>(list.size()))
      box.Drive = String(list[static_cast<std::size_t>(index)]);
    // The handler may have refused the volume and gone back.
    show();
  });
  return view;
}

QWidget* MakeView(DirListBox& box, Bindings& bindings) {
  auto* view = new FolderList;
  view->setIconSize({kSmallIcon, kSmallIcon});
  view->setSpacing(1);
  view->setItemDelegate(new IndentedRow(view));
  const auto showIndex = [&box, view] {
    const QSignalBlocker quiet(view);
    view->setCurrentRow(box.ListIndex);
  };
  bindings.Follow(box.Rows, [&box, view, showIndex] {
    const QSignalBlocker quiet(view);
    view->clear();
    for (const auto& row : box.Rows.Get()) {
      auto* item = new QListWidgetItem(NamedIcon(u"folder"), ToQt(row.Name), view);
      item->setData(kDepthRole, row.Depth);
    }
    showIndex();
  });
  bindings.Watch(box.ListIndex, showIndex);
  bindings.On(view, &QListWidget::currentRowChanged, [&box](int row) { box.ListIndex = row; });
  const auto go = [&box](int index) {
    const auto& rows = box.Rows.Get();
    if (index < 0 || index >= static_cast<int>(rows.size())) return;
    // A copy, since the rows change on the way.
    const String path = rows[static_cast<std::size_t>(index)].Path;
    box.Go(path);
  };
  bindings.On(view, &QListWidget::itemDoubleClicked,
              [view, go](QListWidgetItem* item) { go(view->row(item)); });
  view->OnEnter = go;
  bindings.AtEnd([view] { view->OnEnter = nullptr; });
  return view;
}

QWidget* MakeView(FileListBox& box, Bindings& bindings) {
  QListView* const view =
      MakeRowsView(box, box.Selected,
                   box.MultiSelect ? ListBox::Marks::MultiSelect : ListBox::Marks::None, bindings);
  bindings.On(view, &QListView::doubleClicked, [&box] {
    if (box.OnDblClick) box.OnDblClick();
  });
  return view;
}
