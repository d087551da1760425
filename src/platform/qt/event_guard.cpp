#include "platform/qt/event_guard.h"

#include <QMessageBox>
#include <new>

#include "platform/qt/window_place.h"

namespace {

QString Describe(const std::exception_ptr& error) {
  try {
    std::rethrow_exception(error);
  } catch (const std::bad_alloc&) {
    return QStringLiteral("There is not enough memory to do this.");
  } catch (const std::exception& exception) {
    return QString::fromUtf8(exception.what());
  } catch (...) {
    return QStringLiteral("An unexpected error occurred.");
  }
}

}  // namespace

void ReportException(std::exception_ptr error) {
  QMessageBox box(QMessageBox::Warning, QStringLiteral("WordFlurn"), Describe(error),
                  QMessageBox::Ok);
  box.setTextFormat(Qt::PlainText);
  box.adjustSize();
  PlaceOver(box, QApplication::activeWindow());
  box.exec();
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
  bool handled = true;
  RunGuarded([&] { handled = QApplication::notify(receiver, event); });
  return handled;
}
