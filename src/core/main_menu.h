#pragma once
// The menu bar of the main window, as plain data, made from the table of commands and the
// catalogue of tools. The main window sets the handlers.

#include <array>
#include <memory>
#include <vector>

#include "core/commands.h"
#include "custom/custom_tool_names.h"
#include "tools/catalogue.h"

struct MainMenu {
  MainMenu();

  // The menus in order.
  std::vector<MenuItem*> Menus();
  // The entry of a command; null for a command without one.
  MenuItem* ItemOf(const Command& command);
  // The entry of a tool; null for a tool without one.
  MenuItem* ToolMenu(StringView storedName);

  MenuItem FileMenu{u"&File"};
  MenuItem NewMenu;
  MenuItem OpenMenu;
  MenuItem SaveMenu;
  MenuItem SaveAsMenu;
  MenuItem MultiMenu;
  MenuItem ExitMenu;

  MenuItem EditMenu{u"&Edit"};
  MenuItem UndoEditMenu;
  MenuItem RedoEditMenu;
  MenuItem hyphen9;
  MenuItem UndoMFFMenu;
  MenuItem CutMenu;
  MenuItem CopyMenu;
  MenuItem CopyAllMenu;
  MenuItem PasteMenu;
  MenuItem DeleteMenu;
  MenuItem SelectAllMenu;
  MenuItem FindMenu;
  MenuItem FindNextMenu;

  MenuItem ViewMenu{u"&View"};
  MenuItem HorizWordWrapMenu;

  MenuItem ToolsMenu{u"&Tools"};
  MenuItem CustToolsMenu{u"&Custom Tools"};
  // Cust1Menu to Cust8Menu.
  std::array<MenuItem, kMostCustomTools> CustMenus;
  MenuItem hyphen7;
  MenuItem CreateCustMenu;
  MenuItem EditCustMenu;

  MenuItem HelpMenu{u"&Help"};
  MenuItem ContentsMenu;

  struct ToolEntry {
    const ::Tool* Tool;
    std::unique_ptr<MenuItem> Item;
  };
  // One for each tool that is there and has a caption, in the catalogue's order.
  std::vector<ToolEntry> ToolEntries;

 private:
  MenuItem& MakeLine();
  void BuildToolsMenu();

  std::vector<std::unique_ptr<MenuItem>> lines_;
  std::vector<std::unique_ptr<MenuItem>> submenus_;
};
