#pragma once
// Builds the widgets of a layout tree.

#include <QLayout>
#include <vector>

#include "platform/qt/bindings.h"
#include "platform/window/layout.h"

// A control and its widget.
struct PlacedControl {
  Control* Model;
  QWidget* View;
};

// Fills `window` and returns its controls in the order of the tree. Bars of a QMainWindow go to its
// edges.
std::vector<PlacedControl> BuildLayout(const Layout& content, QWidget& window, Bindings& bindings);
