#include "core/main_menu.h"

MainMenu::MainMenu() {
  for (const Command& command : Commands()) {
    if (command.Menu == nullptr) continue;
    MenuItem* named = ItemOf(command);
    MenuItem& item = named ? *named : MakeLine();
    item.Caption = String(command.Caption);
    item.Shortcut = NameOf(command.Keys);
    item.Separator = command.Run == nullptr;
    (this->*command.Menu).Items.push_back(&item);
  }
  HorizWordWrapMenu.Checkable = true;
  BuildToolsMenu();
  for (MenuItem& item : CustMenus) item.Visible = false;
  hyphen7.Visible = false;
}

std::vector<MenuItem*> MainMenu::Menus() {
  return {&FileMenu, &EditMenu, &ViewMenu, &ToolsMenu, &CustToolsMenu, &HelpMenu};
}

MenuItem* MainMenu::ItemOf(const Command& command) {
  if (command.CustomTool > 0)
    return &CustMenus.at(static_cast<std::size_t>(command.CustomTool) - 1);
  return command.Item ? &(this->*command.Item) : nullptr;
}

MenuItem* MainMenu::ToolMenu(StringView storedName) {
  for (const ToolEntry& entry : ToolEntries) {
    if (entry.Tool->StoredName == storedName) return entry.Item.get();
  }
  return nullptr;
}

MenuItem& MainMenu::MakeLine() { return *lines_.emplace_back(std::make_unique<MenuItem>()); }

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
