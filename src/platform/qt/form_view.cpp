#include "platform/qt/form_view.h"

#include <QApplication>
#include <QLabel>
#include <QLayout>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QWindow>

#include "platform/qt/file_drop.h"
#include "platform/qt/keyboard.h"
#include "platform/qt/menu_builder.h"
#include "platform/qt/strings.h"
#include "platform/qt/window_place.h"
#include "platform/qt/windows.h"
#include "platform/qt/wrapping_label.h"

namespace {

// Qt puts the mark of a changed document where a title has "[*]"; doubled, it stands for itself.
QString TitleOf(const Form& form) {
  return ToQt(form.Caption.Get()).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

// Whether a click on the button would reach it now.
bool Works(const QWidget* button) { return button && button->isVisible() && button->isEnabled(); }

// Whether Return ends a line there.
bool TakesReturn(const QWidget* widget) {
  const auto* lines = qobject_cast<const QPlainTextEdit*>(widget);
  return lines && !lines->isReadOnly();
}

void Press(QWidget* button) { static_cast<QPushButton*>(button)->click(); }

}  // namespace

FormView::FormView(Form& form)
    : form_(form), style_(form.Style()), bindings_(std::make_unique<Bindings>()) {
  window_ =
      MakeWindow(style_, {[this] { OnClose(); }, [this] { OnEscape(); }, [this] { OnReturn(); }});
  Build();
  bindings_->Follow(form.Caption, [this] { window_->setWindowTitle(TitleOf(form_)); });
  bindings_->Follow(form.Busy, [this] {
    if (form_.Busy)
      window_->setCursor(Qt::BusyCursor);
    else
      window_->unsetCursor();
  });
  bindings_->Watch(form.Visible, [this] {
    if (form_.Visible) return;
    window_->hide();
    Gone.Emit();
  });
}

FormView::~FormView() {
  bindings_.reset();
  if (window_) {
    window_->hide();
    // A handler of this very window may be running.
    window_->deleteLater();
  }
  Gone.Emit();
}

void FormView::Build() {
  controls_ = BuildLayout(form_.Content(), *window_, *bindings_);
  if (auto* main = qobject_cast<QMainWindow*>(window_)) {
    main->menuBar()->setAccessibleName(QStringLiteral("Menus"));
    BuildMenuBar(*main->menuBar(), form_.Menus(), *bindings_);
  }
  if (form_.TakesDrops()) AcceptFiles(form_, *window_, *bindings_);
  bindings_->On(qApp, &QGuiApplication::focusWindowChanged, [this](QWindow* now) {
    if (now && now == window_->windowHandle()) form_.Activated();
  });
  for (QLabel* label : window_->findChildren<QLabel*>())
    if (auto* wrapping = dynamic_cast<WrappingLabel*>(label)) wrapping->FitColumns(form_.Columns);
  FindButtons();
  SetTabOrder();
  if (IsMain()) FollowKeyboard(form_, *window_, controls_, *bindings_);
}

void FormView::FindButtons() {
  for (const auto& [control, view] : controls_) {
    const auto* button = dynamic_cast<const CommandButton*>(control);
    if (!button) continue;
    if (button->Default && !default_) default_ = view;
    if (button->Cancel && !cancel_) cancel_ = view;
  }
  // A button with the keyboard shows itself as the default one in place of the form's. Without a
  // default button in the form Qt would choose one.
  for (const auto& [control, view] : controls_)
    if (auto* button = qobject_cast<QPushButton*>(view))
      button->setAutoDefault(default_ != nullptr);
  if (default_ && !IsMain())
    bindings_->On(qApp, &QApplication::focusChanged, [this](QWidget*, QWidget* now) {
      // Where Return ends a line, no button may look as if it were pressed.
      if (now && now->window() == window_)
        static_cast<QPushButton*>(default_)->setDefault(!TakesReturn(now));
    });
}

void FormView::SetTabOrder() {
  // Only now, since moving a widget to another parent ends its place in the order.
  for (std::size_t i = 1; i < controls_.size(); ++i)
    QWidget::setTabOrder(controls_[i - 1].View, controls_[i].View);
}

void FormView::Show(bool modal, QWidget* parent) {
  const bool first = !std::exchange(shownBefore_, true);
  const auto modality = modal ? Qt::ApplicationModal : Qt::NonModal;
  if (window_->windowModality() != modality) {
    window_->hide();
    window_->setWindowModality(modality);
  }
  const bool visible = window_->isVisible();
  if (!visible && (first || !IsMain())) {
    Fit();
    FocusFirst();
    if (!IsMain()) PlaceOver(*window_, parent);
  }
  awaitsScreen_ = true;
  window_->show();
  if (visible) window_->raise();
  window_->activateWindow();
}

bool FormView::AwaitsScreen() {
  const QWindow* handle = window_->windowHandle();
  if (!window_->isVisible() || window_->isMinimized() || !handle || handle->isExposed())
    awaitsScreen_ = false;
  return awaitsScreen_;
}

void FormView::Fit() {
  window_->ensurePolished();
  const QFontMetrics metrics = window_->fontMetrics();
  const QSize screen = window_->screen()->availableSize();
  QSize size = window_->sizeHint();
  // The wish is for the inner area: what a main window has round it comes on top.
  QSize edge(0, 0);
  if (auto* main = qobject_cast<QMainWindow*>(window_))
    edge = size - main->centralWidget()->sizeHint();
  const QSize wished(form_.Columns * metrics.averageCharWidth() + edge.width(),
                     form_.Lines * metrics.lineSpacing() + edge.height());
  size = size.expandedTo(wished).boundedTo(screen * 0.95);
  if (QLayout* box = window_->layout(); box && box->hasHeightForWidth())
    size.setHeight(std::min(std::max(box->totalHeightForWidth(size.width()), wished.height()),
                            static_cast<int>(screen.height() * 0.95)));
  window_->resize(size);
}

void FormView::FocusFirst() {
  for (const auto& [control, view] : controls_) {
    const bool input = view->focusPolicy() != Qt::NoFocus && !view->inherits("QPushButton") &&
                       !view->inherits("QTabWidget");
    if (!input || !view->isEnabled() || !view->isVisibleTo(window_)) continue;
    const auto* option = qobject_cast<QRadioButton*>(view);
    if (option && !option->isChecked()) continue;
    // As by the Tab key, which selects what stands in a text box.
    return view->setFocus(Qt::TabFocusReason);
  }
  if (default_) default_->setFocus(Qt::OtherFocusReason);
}

void FormView::OnClose() {
  const bool closes = style_ == Form::Frame::Dialog || style_ == Form::Frame::Main;
  if (closes)
    RunGuarded([this] { form_.CloseByFrame(); });
  else if (Works(cancel_))
    Press(cancel_);
}

void FormView::OnEscape() {
  if (Works(cancel_)) return Press(cancel_);
  // The text of a main window has the keyboard most of the time; a slip must not end the program.
  if (!IsMain()) OnClose();
}

void FormView::OnReturn() {
  auto* focused = qobject_cast<QPushButton*>(window_->focusWidget());
  if (Works(focused))
    Press(focused);
  else if (Works(default_))
    Press(default_);
}
