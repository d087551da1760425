#include "core/main_menu.h"

MainMenu::MainMenu() {
  NewMenu.Shortcut = u"Ctrl+N";
  OpenMenu.Shortcut = u"Ctrl+O";
  SaveMenu.Shortcut = u"Ctrl+S";
  HorizWordWrapMenu.Shortcut = u"F9";
  HorizWordWrapMenu.Checkable = true;

  FileMenu.Items = {&NewMenu, &OpenMenu, &SaveMenu, &SaveAsMenu, Separator(), &ExitMenu};
  ViewMenu.Items = {&HorizWordWrapMenu};
  BuildToolsMenu();
  for (MenuItem& item : CustMenus) {
    item.Visible = false;
    CustToolsMenu.Items.push_back(&item);
  }
}

std::vector<MenuItem*> MainMenu::Menus() {
  return {&FileMenu, &ViewMenu, &ToolsMenu, &CustToolsMenu};
}

MenuItem* MainMenu::ToolMenu(StringView storedName) {
  for (const ToolEntry& entry : ToolEntries) {
    if (entry.Tool->StoredName == storedName) return entry.Item.get();
  }
  return nullptr;
}

MenuItem* MainMenu::Separator() {
  auto& item = separators_.emplace_back(std::make_unique<MenuItem>());
  item->Separator = true;
  return item.get();
}

void MainMenu::BuildToolsMenu() {
  for (const ToolMenuGroup& group : ToolMenuGroups()) {
    std::vector<MenuItem*> items;
    for (const Tool& tool : Catalogue()) {
      if (tool.Group != group.Group || tool.Caption.empty() || tool.Run == nullptr) continue;
      ToolEntries.push_back({&tool, std::make_unique<MenuItem>(tool.Caption)});
      items.push_back(ToolEntries.back().Item.get());
    }
    if (group.Caption.empty()) {
      ToolsMenu.Items.insert(ToolsMenu.Items.end(), items.begin(), items.end());
    } else if (!items.empty()) {
      auto& submenu = submenus_.emplace_back(std::make_unique<MenuItem>(group.Caption));
      submenu->Items = items;
      ToolsMenu.Items.push_back(submenu.get());
    }
  }
}
