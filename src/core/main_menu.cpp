#include "core/main_menu.h"

MainMenu::MainMenu() {
  const struct {
    MenuItem& Item;
    StringView Keys;
  } shortcuts[] = {
      {NewMenu, u"Ctrl+N"},      {OpenMenu, u"Ctrl+O"},      {SaveMenu, u"Ctrl+S"},
      {UndoEditMenu, u"Ctrl+Z"}, {RedoEditMenu, u"Ctrl+Y"},  {CutMenu, u"Ctrl+X"},
      {CopyMenu, u"Ctrl+C"},     {CopyAllMenu, u"F11"},      {PasteMenu, u"Ctrl+V"},
      {DeleteMenu, u"Del"},      {SelectAllMenu, u"Ctrl+A"}, {FindMenu, u"Ctrl+F"},
      {FindNextMenu, u"Ctrl+T"}, {HorizWordWrapMenu, u"F9"}, {ContentsMenu, u"F12"},
  };
  for (const auto& [item, keys] : shortcuts) item.Shortcut = String(keys);
  HorizWordWrapMenu.Checkable = true;
  hyphen9.Separator = true;

  FileMenu.Items = {&NewMenu, &OpenMenu, &SaveMenu, &SaveAsMenu, Separator(), &ExitMenu};
  EditMenu.Items = {&UndoEditMenu,  &RedoEditMenu, &hyphen9,   &CutMenu,
                    &CopyMenu,      &CopyAllMenu,  &PasteMenu, &DeleteMenu,
                    &SelectAllMenu, Separator(),   &FindMenu,  &FindNextMenu};
  ViewMenu.Items = {&HorizWordWrapMenu};
  BuildToolsMenu();
  for (std::size_t i = 0; i < CustMenus.size(); ++i) {
    CustMenus[i].Visible = false;
    CustMenus[i].Shortcut = u"F" + Str(static_cast<long long>(i) + 1);
    CustToolsMenu.Items.push_back(&CustMenus[i]);
  }
  hyphen7.Separator = true;
  hyphen7.Visible = false;
  CustToolsMenu.Items.push_back(&hyphen7);
  HelpMenu.Items = {&ContentsMenu};
}

std::vector<MenuItem*> MainMenu::Menus() {
  return {&FileMenu, &EditMenu, &ViewMenu, &ToolsMenu, &CustToolsMenu, &HelpMenu};
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
