#pragma once
// Menus, tool bar and status bar of a main window, as plain data.

#include <functional>
#include <vector>

#include "platform/window/controls.h"

// An entry of a menu, or a menu with entries of its own.
struct MenuItem {
  MenuItem() = default;
  explicit MenuItem(StringView caption) : Caption(String(caption)) {}
  MenuItem(const MenuItem&) = delete;
  MenuItem& operator=(const MenuItem&) = delete;

  void Click() {
    if (Enabled && OnClick) OnClick();
  }
  Property<String> Caption;
  Property<bool> Visible{true};
  Property<bool> Enabled{true};
  Property<bool> Checked{false};
  bool Checkable = false;
  // A dash between entries.
  bool Separator = false;
  // The key that works the entry, as "Ctrl+N"; shown beside the caption.
  String Shortcut;
  std::function<void()> OnClick;
  // Runs before a menu opens.
  std::function<void()> OnOpen;
  // The entries of a menu, in order. The window that has them owns them.
  std::vector<MenuItem*> Items;
};

struct ToolBar : Control {
  void Accept(ControlVisitor& visitor) override;
  // In order; a null pointer is a gap.
  std::vector<CommandButton*> Buttons;
};

struct StatusPanel {
  Property<String> Text;
  Property<String> ToolTipText;
  // What a click on the panel offers; empty for a panel that only tells.
  std::vector<MenuItem*> Choices;
};

struct StatusBar : Control {
  void Accept(ControlVisitor& visitor) override;
  // A message at the left, gone with the next one or when it is set to empty.
  Property<String> Message;
  std::vector<StatusPanel*> Panels;
};
