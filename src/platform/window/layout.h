#pragma once
// How the controls of a window stand: a small tree of rows, columns, grids, groups and tabs.

#include <initializer_list>
#include <vector>

#include "platform/window/controls.h"

struct Layout {
  enum class Kind { Item, Row, Column, Grid, Group, Tabs, Stretch };

  Layout(Control& control) : Shape(Kind::Item), Content(&control) {}
  Layout(Kind shape, std::vector<Layout> items) : Shape(shape), Items(std::move(items)) {}

  Kind Shape;
  // The control of an Item, the TabStrip of Tabs, else null.
  Control* Content = nullptr;
  // The heading of a Group, or of a page of Tabs.
  String Caption;
  // A Group without a caption is the invisible frame of its option buttons.
  int Columns = 0;
  std::vector<Layout> Items;
};

inline Layout Row(std::initializer_list<Layout> items) { return {Layout::Kind::Row, items}; }
inline Layout Column(std::initializer_list<Layout> items) { return {Layout::Kind::Column, items}; }
// Fills row after row.
inline Layout Grid(int columns, std::initializer_list<Layout> items) {
  Layout grid(Layout::Kind::Grid, items);
  grid.Columns = columns;
  return grid;
}
inline Layout Group(StringView caption, std::initializer_list<Layout> items) {
  Layout group(Layout::Kind::Group, items);
  group.Caption = caption;
  return group;
}
// Pages are Groups; their captions stand on the tabs.
inline Layout Tabs(TabStrip& strip, std::initializer_list<Layout> pages) {
  Layout tabs(Layout::Kind::Tabs, pages);
  tabs.Content = &strip;
  return tabs;
}
// Takes the room that is left over.
inline Layout Stretch() { return {Layout::Kind::Stretch, {}}; }
