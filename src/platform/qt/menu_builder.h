#pragma once
// Menus from menu items.

#include <QMenu>
#include <QMenuBar>

#include "platform/qt/bindings.h"
#include "platform/window/bars.h"

// Puts the menus on the bar; they change with their items.
void BuildMenuBar(QMenuBar& bar, const std::vector<MenuItem*>& menus, Bindings& bindings);

// Fills a menu that opens by itself, as from a button.
void FillMenu(QMenu& menu, const std::vector<MenuItem*>& items, Bindings& bindings);
