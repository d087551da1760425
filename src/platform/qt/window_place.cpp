#include "platform/qt/window_place.h"

#include <QScreen>
#include <QWindow>

void PlaceOver(QWidget& window, QWidget* parent) {
  QWindow* const behind = parent ? parent->windowHandle() : nullptr;
  const QRect screen = (parent ? parent : &window)->screen()->availableGeometry();
  QRect place(QPoint(), window.size());
  // Where a window stands is known when the desktop has put it up.
  const bool known = behind && behind->isExposed();
  place.moveCenter(known ? parent->frameGeometry().center() : screen.center());
  place.moveRight(std::min(place.right(), screen.right()));
  place.moveBottom(std::min(place.bottom(), screen.bottom()));
  place.moveLeft(std::max(place.left(), screen.left()));
  place.moveTop(std::max(place.top(), screen.top()));
  window.move(place.topLeft());
  window.winId();
  if (behind) window.windowHandle()->setTransientParent(behind);
}
