#pragma once
// Where windows stand.

#include <QWidget>

// Puts a window that is not visible yet over the middle of another one, which it then stays in
// front of; in the middle of the screen when `parent` is null. It is no child of `parent`, which
// may be destroyed before it.
void PlaceOver(QWidget& window, QWidget* parent);
