#include "platform/qt/layout_builder.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <algorithm>

#include "platform/qt/control_views.h"
#include "platform/qt/group_frame.h"
#include "platform/qt/strings.h"

namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 8;
// From the upper edge of a box to the text in it.
constexpr int kTextInset = 4;
// Round rows that stand above or below the text of a main window.
constexpr QMargins kPanelMargins{8, 6, 8, 6};

// What one step of the tree has become. At most one of both; none for a bar at the window's edge.
struct Piece {
  QWidget* Widget = nullptr;
  QLayout* Box = nullptr;
  // Takes room that is left over.
  bool Across = false;
  bool Down = false;
};

bool Expands(const QWidget& widget, Qt::Orientation direction) {
  return (widget.sizePolicy().expandingDirections() & direction) != 0;
}

bool TakesText(const QWidget* widget) {
  return widget->inherits("QLineEdit") || widget->inherits("QComboBox") ||
         widget->inherits("QAbstractScrollArea");
}

class Builder {
 public:
  Builder(QWidget& window, Bindings& bindings)
      : main_(qobject_cast<QMainWindow*>(&window)), bindings_(bindings) {}

  Piece Build(const Layout& layout) {
    switch (layout.Shape) {
      case Layout::Kind::Item:
        return Item(*layout.Content);
      case Layout::Kind::Row:
        return Line(layout.Items, QBoxLayout::LeftToRight);
      case Layout::Kind::Column:
        return Line(layout.Items, QBoxLayout::TopToBottom);
      case Layout::Kind::Grid:
        return Grid(layout);
      case Layout::Kind::Group:
        return Group(layout);
      case Layout::Kind::Tabs:
        return Tabs(layout);
      case Layout::Kind::Stretch:
        return {};
    }
    return {};
  }

  // The content of a main window reaches its edges; rows beside the text keep a distance.
  void BuildMain(const Layout& content) {
    Piece root = Build(content);
    FramePanels(*AsBox(root));
    auto* central = new QWidget;
    central->setLayout(root.Box);
    root.Box->setContentsMargins({});
    root.Box->setSpacing(0);
    main_->setCentralWidget(central);
  }

  void BuildDialog(const Layout& content, QWidget& window) {
    Piece root = Build(content);
    window.setLayout(AsBox(root));
    root.Box->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  }

  std::vector<PlacedControl> Placed;

 private:
  // A row gets a frame of its own, so that its margins go with its controls when they are hidden.
  static void FramePanels(QLayout& root) {
    auto* box = qobject_cast<QBoxLayout*>(&root);
    for (int i = 0; box && i < box->count(); ++i) {
      QLayout* panel = box->itemAt(i)->layout();
      if (!panel) continue;
      const int stretch = box->stretch(i);
      box->takeAt(i);
      panel->setParent(nullptr);
      panel->setContentsMargins(kPanelMargins);
      auto* frame = new QWidget;
      MarkAsGroup(*frame);
      frame->setLayout(panel);
      box->insertWidget(i, frame, stretch);
    }
  }

  Piece Item(Control& control) {
    QWidget* const widget = MakeControlView(control, bindings_);
    if (main_ && PutAtEdge(widget)) return {};
    Place(control, widget);
    return {widget, nullptr, Expands(*widget, Qt::Horizontal), Expands(*widget, Qt::Vertical)};
  }

  bool PutAtEdge(QWidget* widget) {
    // Both of these show what they are given.
    const bool hidden = HiddenByProgram(*widget);
    if (auto* tools = qobject_cast<QToolBar*>(widget))
      main_->addToolBar(tools);
    else if (auto* status = qobject_cast<QStatusBar*>(widget))
      main_->setStatusBar(status);
    else
      return false;
    widget->setVisible(!hidden);
    return true;
  }

  void Place(Control& control, QWidget* widget) {
    if (!Placed.empty() && TakesText(widget))
      if (auto* label = qobject_cast<QLabel*>(Placed.back().View)) label->setBuddy(widget);
    Placed.push_back({&control, widget});
  }

  Piece Line(const std::vector<Layout>& items, QBoxLayout::Direction direction) {
    const bool row = direction == QBoxLayout::LeftToRight;
    auto* box = new QBoxLayout(direction);
    box->setContentsMargins({});
    box->setSpacing(kSpacing);
    Piece whole{nullptr, box};
    bool filled = false;
    std::vector<QLabel*> labels;
    for (const Layout& item : items) {
      if (item.Shape == Layout::Kind::Stretch) {
        box->addStretch(1);
        filled = true;
        continue;
      }
      const Piece piece = Build(item);
      const int share = (row ? piece.Across : piece.Down) ? 1 : 0;
      if (piece.Widget) box->addWidget(piece.Widget, share);
      if (piece.Box) box->addLayout(piece.Box, share);
      filled |= share > 0;
      whole.Across |= piece.Across;
      whole.Down |= piece.Down;
      if (auto* label = qobject_cast<QLabel*>(piece.Widget)) labels.push_back(label);
      if (row && dynamic_cast<Image*>(item.Content)) box->setAlignment(piece.Widget, Qt::AlignTop);
    }
    if (!filled) box->addStretch(1);
    // A label beside something tall belongs to its first line.
    if (row && whole.Down)
      for (QLabel* label : labels) AlignTop(*label);
    return whole;
  }

  Piece Grid(const Layout& layout) {
    auto* grid = new QGridLayout;
    grid->setContentsMargins({});
    grid->setSpacing(kSpacing);
    Piece whole{nullptr, grid};
    const int columns = std::max(layout.Columns, 1);
    int cell = 0;
    for (const Layout& item : layout.Items) {
      const int row = cell / columns;
      const int column = cell % columns;
      ++cell;
      const Piece piece = Build(item);
      if (piece.Widget) grid->addWidget(piece.Widget, row, column);
      if (piece.Box) grid->addLayout(piece.Box, row, column);
      if (piece.Across) grid->setColumnStretch(column, 1);
      if (piece.Down) {
        grid->setRowStretch(row, 1);
        for (int i = 0; i < column; ++i)
          if (auto* label = LabelIn(grid->itemAtPosition(row, i))) AlignTop(*label);
      }
      whole.Across |= piece.Across;
      whole.Down |= piece.Down;
    }
    // An empty last column and row take what nobody wants.
    if (!whole.Across) grid->setColumnStretch(columns, 1);
    if (!whole.Down) grid->setRowStretch((cell + columns - 1) / columns, 1);
    return whole;
  }

  static QLabel* LabelIn(QLayoutItem* item) {
    return item ? qobject_cast<QLabel*>(item->widget()) : nullptr;
  }

  static void AlignTop(QLabel& label) {
    label.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label.setContentsMargins(0, kTextInset, 0, 0);
  }

  Piece Group(const Layout& layout) {
    QWidget* const frame =
        layout.Caption.empty() ? new QWidget : new QGroupBox(ToQt(layout.Caption));
    // Option buttons that share a parent exclude each other, so every group is a widget.
    MarkAsGroup(*frame);
    const Piece inside = Line(layout.Items, QBoxLayout::TopToBottom);
    if (!layout.Caption.empty())
      inside.Box->setContentsMargins(kMargin, kSpacing, kMargin, kMargin);
    frame->setLayout(inside.Box);
    return {frame, nullptr, inside.Across, inside.Down};
  }

  Piece Tabs(const Layout& layout) {
    auto& strip = static_cast<TabStrip&>(*layout.Content);
    auto* tabs = static_cast<QTabWidget*>(MakeControlView(strip, bindings_));
    Place(strip, tabs);
    Piece whole{tabs, nullptr};
    for (const Layout& page : layout.Items) {
      const Piece inside = Line(page.Items, QBoxLayout::TopToBottom);
      inside.Box->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
      auto* widget = new QWidget;
      widget->setLayout(inside.Box);
      tabs->addTab(widget, ToQt(page.Caption));
      whole.Across |= inside.Across;
      whole.Down |= inside.Down;
    }
    tabs->setCurrentIndex(strip.SelectedItem);
    bindings_.On(tabs, &QTabWidget::currentChanged,
                 [&strip](int index) { strip.SelectedItem = index; });
    return whole;
  }

  static QLayout* AsBox(Piece& piece) {
    if (!piece.Box) {
      piece.Box = new QVBoxLayout;
      piece.Box->setContentsMargins({});
      if (piece.Widget) piece.Box->addWidget(piece.Widget);
    }
    return piece.Box;
  }

  QMainWindow* main_;
  Bindings& bindings_;
};

}  // namespace

std::vector<PlacedControl> BuildLayout(const Layout& content, QWidget& window, Bindings& bindings) {
  Builder builder(window, bindings);
  if (qobject_cast<QMainWindow*>(&window))
    builder.BuildMain(content);
  else
    builder.BuildDialog(content, window);
  for (const auto& placed : builder.Placed)
    if (HiddenByProgram(*placed.View)) UpdateGroup(placed.View->parentWidget());
  return std::move(builder.Placed);
}
