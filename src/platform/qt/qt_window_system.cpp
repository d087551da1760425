#include "platform/qt/qt_window_system.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include "platform/qt/clipboard_keeper.h"
#include "platform/qt/icons.h"
#include "platform/qt/qt_common_dialog.h"
#include "platform/qt/qt_rich_text_box.h"
#include "platform/qt/qt_timer.h"
#include "platform/system/steady_clock.h"

namespace {
// How long a window may take to come onto the screen.
constexpr int kExposureMs = 300;
}  // namespace

QtWindowSystem::QtWindowSystem(std::unique_ptr<QApplication> application)
    : application_(std::move(application)) {
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setApplicationName(QStringLiteral("wordflurn"));
  QApplication::setApplicationDisplayName(QString());
  QApplication::setOrganizationName(QStringLiteral("WordFlurn"));
  QApplication::setDesktopFileName(QStringLiteral("wordflurn"));
  QApplication::setWindowIcon(NamedIcon(u"application"));
}

QtWindowSystem::~QtWindowSystem() {
  if (application_) LeaveClipboardBehind();
}

FormView& QtWindowSystem::ViewOf(Form& form) {
  auto& view = views_[&form];
  if (!view) view = std::make_unique<FormView>(form);
  return *view;
}

QWidget* QtWindowSystem::WindowOf(const Form& form) const {
  const auto found = views_.find(&form);
  return found == views_.end() ? nullptr : found->second->Window();
}

QWidget* QtWindowSystem::ParentFor(const Form& form) const {
  const QWidget* own = WindowOf(form);
  for (QWidget* window : {QApplication::activeModalWidget(), QApplication::activeWindow()})
    if (window && window != own && window->isVisible()) return window;
  // Nothing is active while the desktop still puts the main window up.
  for (const auto& [shown, view] : views_)
    if (shown != &form && view->IsMain() && view->Window()->isVisible()) return view->Window();
  return nullptr;
}

void QtWindowSystem::Show(Form& form) { ViewOf(form).Show(form.BlocksOthers(), ParentFor(form)); }

void QtWindowSystem::RunModal(Form& form) {
  if (quit_) return form.Hide();
  FormView& view = ViewOf(form);
  QEventLoop loop;
  bool gone = false;
  // The view, and the form with it, may be destroyed while the loop runs.
  const auto kept = view.Gone.Observe([&] {
    gone = true;
    loop.quit();
  });
  view.Show(true, ParentFor(form));
  if (!gone) loop.exec();
  // The program ends: whoever waits for the window goes on as if it had been closed.
  if (!gone) form.Hide();
}

void QtWindowSystem::Forget(Form& form) {
  // Out of the table first: what hears of the end may ask for the form's window.
  const auto node = views_.extract(&form);
}

void QtWindowSystem::DoEvents() {
  QApplication::processEvents();
  AwaitExposure();
}

// A window that was just shown must be seen before a long task goes on.
void QtWindowSystem::AwaitExposure() {
  const auto waiting = [this] {
    return std::any_of(views_.begin(), views_.end(),
                       [](const auto& entry) { return entry.second->AwaitsScreen(); });
  };
  const QDeadlineTimer deadline(kExposureMs);
  while (waiting() && !deadline.hasExpired())
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
  for (const auto& [form, view] : views_) view->AwaitNoLonger();
}

void QtWindowSystem::Wait(int milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
}

long long QtWindowSystem::Milliseconds() const { return SteadyMilliseconds(); }

int QtWindowSystem::Run() {
  if (quit_) return *quit_;
  QApplication::exec();
  return quit_.value_or(0);
}

void QtWindowSystem::Quit(int status) {
  quit_ = status;
  QApplication::exit(status);
}

int QtWindowSystem::ScreenFontSize() const {
  const QScreen* screen = QApplication::primaryScreen();
  return screen ? qRound(screen->logicalDotsPerInchX()) : 96;
}

std::unique_ptr<Timer> QtWindowSystem::CreateTimer() { return std::make_unique<QtTimer>(); }

std::unique_ptr<RichTextBox> QtWindowSystem::CreateRichTextBox() {
  return std::make_unique<QtRichTextBox>();
}

std::unique_ptr<CommonDialog> QtWindowSystem::CreateCommonDialog() {
  return std::make_unique<QtCommonDialog>(lastFolder_);
}
