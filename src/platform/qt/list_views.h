#pragma once
// What the views of list boxes and of file lists share.

#include <QListView>

#include "platform/qt/bindings.h"
#include "platform/window/controls.h"

// A list view tied to the rows, the current row and the marks of a list.
QListView* MakeRowsView(ListControl& list, Property<std::set<int>>& selected, ListBox::Marks marks,
                        Bindings& bindings);
