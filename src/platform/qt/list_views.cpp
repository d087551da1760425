// List boxes and combo boxes.

#include "platform/qt/list_views.h"

#include <QComboBox>
#include <QLineEdit>
#include <QStylePainter>

#include "platform/qt/control_views.h"
#include "platform/qt/list_rows.h"
#include "platform/qt/strings.h"

namespace {

// One list view and its control. Lives as long as the bindings.
class RowsBinding {
 public:
  RowsBinding(ListControl& list, Property<std::set<int>>& selected, ListBox::Marks marks)
      : list_(list), selected_(selected), marks_(marks), view_(new QListView) {
    rows_ = new ListRows(view_);
    view_->setModel(rows_);
    view_->setUniformItemSizes(true);
    view_->setSpacing(1);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->setSelectionMode(marks == ListBox::Marks::MultiSelect
                                ? QAbstractItemView::ExtendedSelection
                                : QAbstractItemView::SingleSelection);
    if (marks != ListBox::Marks::CheckBoxes) return;
    rows_->IsTicked = [this](int row) { return selected_.Get().contains(row); };
    rows_->Tick = [this](int row, bool on) { static_cast<ListBox&>(list_).Select(row, on); };
  }

  QListView* View() const { return view_; }

  // The widget may live a little longer than what it shows.
  void End() { rows_->IsTicked = nullptr, rows_->Tick = nullptr; }

  void ShowAll() {
    {
      const Quiet quiet(*this);
      rows_->Show(list_.List);
    }
    ShowMarks();
    ShowIndex();
  }

  void ShowMarks() {
    if (marks_ == ListBox::Marks::CheckBoxes) rows_->ShowTicks();
    if (marks_ != ListBox::Marks::MultiSelect || selected_.Get() == SelectedRows()) return;
    const Quiet quiet(*this);
    // By stretches of rows: thousands of single ones would take their time.
    QItemSelection selection;
    const auto& rows = selected_.Get();
    for (auto row = rows.lower_bound(0); row != rows.end() && *row < rows_->rowCount();) {
      const int first = *row;
      int last = first;
      while (++row != rows.end() && *row == last + 1 && *row < rows_->rowCount()) ++last;
      selection.append(QItemSelectionRange(rows_->index(first), rows_->index(last)));
    }
    view_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  }

  void ShowIndex() {
    const int row = list_.ListIndex;
    const bool multi = marks_ == ListBox::Marks::MultiSelect;
    const Quiet quiet(*this);
    if (row < 0 || row >= rows_->rowCount()) {
      if (!multi) view_->selectionModel()->clear();
      return;
    }
    view_->selectionModel()->setCurrentIndex(
        rows_->index(row),
        multi ? QItemSelectionModel::NoUpdate : QItemSelectionModel::ClearAndSelect);
    view_->scrollTo(rows_->index(row));
  }

  // The current row counts only when it is selected: a list that gets the keyboard makes its first
  // row current, which is no choice of the user, and a mouse makes a row current before it selects
  // it.
  void Read() {
    if (quiet_) return;
    const auto rows = SelectedRows();
    const bool multi = marks_ == ListBox::Marks::MultiSelect;
    const int row =
        multi ? view_->selectionModel()->currentIndex().row() : (rows.empty() ? -1 : *rows.begin());
    if (multi) selected_ = rows;
    if (rows.contains(row)) list_.ListIndex = row;
  }

 private:
  class Quiet {
   public:
    explicit Quiet(RowsBinding& binding) : quiet_(binding.quiet_), before_(quiet_) {
      quiet_ = true;
    }
    ~Quiet() { quiet_ = before_; }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

   private:
    bool& quiet_;
    bool before_;
  };

  std::set<int> SelectedRows() const {
    std::set<int> rows;
    for (const auto& range : view_->selectionModel()->selection())
      for (int row = range.top(); row <= range.bottom(); ++row) rows.insert(row);
    return rows;
  }

  ListControl& list_;
  Property<std::set<int>>& selected_;
  ListBox::Marks marks_;
  QListView* view_;
  ListRows* rows_;
  bool quiet_ = false;
};

// As wide as its rows, within reason; what has no room loses its middle.
class ComboView : public QComboBox {
 public:
  QSize sizeHint() const override { return Bounded(QComboBox::sizeHint()); }
  QSize minimumSizeHint() const override { return Bounded(QComboBox::minimumSizeHint()); }

 protected:
  void paintEvent(QPaintEvent* event) override {
    if (isEditable()) return QComboBox::paintEvent(event);
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const int room =
        style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this)
            .width();
    option.currentText = fontMetrics().elidedText(option.currentText, Qt::ElideMiddle, room - 2);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
  }

 private:
  static constexpr int kWidest = 60;  // average characters
  QSize Bounded(const QSize& size) const {
    return {std::min(size.width(), kWidest * fontMetrics().averageCharWidth()), size.height()};
  }
};

}  // namespace

QListView* MakeRowsView(ListControl& list, Property<std::set<int>>& selected, ListBox::Marks marks,
                        Bindings& bindings) {
  const auto binding = std::make_shared<RowsBinding>(list, selected, marks);
  bindings.Follow(list.List, [binding] { binding->ShowAll(); });
  bindings.Watch(selected, [binding] { binding->ShowMarks(); });
  bindings.AtEnd([binding] { binding->End(); });
  bindings.Watch(list.ListIndex, [binding] { binding->ShowIndex(); });
  QListView* const view = binding->View();
  bindings.On(view->selectionModel(), &QItemSelectionModel::selectionChanged,
              [binding] { binding->Read(); });
  bindings.On(view->selectionModel(), &QItemSelectionModel::currentChanged,
              [binding] { binding->Read(); });
  return view;
}

QWidget* MakeView(ListBox& box, Bindings& bindings) {
  QListView* const view = MakeRowsView(box, box.Selected, box.Style, bindings);
  bindings.On(view, &QListView::doubleClicked, [&box] { box.DblClick(); });
  return view;
}

QWidget* MakeView(ComboBox& box, Bindings& bindings) {
  auto* view = new ComboView;
  view->view()->setTextElideMode(Qt::ElideMiddle);
  view->setEditable(box.Editable);
  view->setInsertPolicy(QComboBox::NoInsert);
  view->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  // Completing would put in text that the user did not type.
  if (box.Editable) view->setCompleter(nullptr);

  const auto show = [&box, view] {
    const QSignalBlocker quiet(view);
    // A text typed no longer fits the row: the caret must stay in it all the same.
    const int caret = box.Editable ? view->lineEdit()->cursorPosition() : 0;
    if (view->currentIndex() != box.ListIndex) view->setCurrentIndex(box.ListIndex);
    if (!box.Editable) return;
    if (FromQt(view->currentText()) != box.Text.Get()) view->setEditText(ToQt(box.Text));
    view->lineEdit()->setCursorPosition(caret);
  };
  bindings.Follow(box.List, [&box, view, show] {
    {
      const QSignalBlocker quiet(view);
      view->clear();
      for (const auto& text : box.List.Get()) view->addItem(ToQt(text));
    }
    show();
  });
  bindings.Watch(box.ListIndex, show);
  bindings.Watch(box.Text, show);
  bindings.On(view, &QComboBox::currentIndexChanged, [&box](int index) { box.ListIndex = index; });
  if (box.Editable)
    bindings.On(view, &QComboBox::editTextChanged,
                [&box](const QString& text) { box.Text = FromQt(text); });
  return view;
}
