#pragma once
// The menu bar of the main window, as plain data. The main window sets the handlers.

#include <array>
#include <memory>
#include <vector>

#include "custom/custom_tool_names.h"
#include "platform/window/bars.h"
#include "tools/catalogue.h"

struct MainMenu {
  MainMenu();

  // The menus in order.
  std::vector<MenuItem*> Menus();
  // The entry of a tool; null for a tool without one.
  MenuItem* ToolMenu(StringView storedName);

  MenuItem FileMenu{u"&File"};
  MenuItem NewMenu{u"&New"};
  MenuItem OpenMenu{u"&Open..."};
  MenuItem SaveMenu{u"&Save"};
  MenuItem SaveAsMenu{u"Save &As..."};
  MenuItem ExitMenu{u"E&xit"};

  MenuItem EditMenu{u"&Edit"};
  MenuItem UndoEditMenu{u"&Undo Edit"};
  MenuItem RedoEditMenu{u"&Redo Edit"};
  MenuItem hyphen9;
  MenuItem CutMenu{u"Cu&t"};
  MenuItem CopyMenu{u"&Copy"};
  MenuItem CopyAllMenu{u"C&opy All"};
  MenuItem PasteMenu{u"&Paste"};
  MenuItem DeleteMenu{u"De&lete"};
  MenuItem SelectAllMenu{u"Select &All"};
  MenuItem FindMenu{u"&Find"};
  MenuItem FindNextMenu{u"Find &Next"};

  MenuItem ViewMenu{u"&View"};
  MenuItem HorizWordWrapMenu{u"&Word Wrap"};

  MenuItem ToolsMenu{u"&Tools"};
  MenuItem CustToolsMenu{u"&Custom Tools"};
  // Cust1Menu to Cust8Menu.
  std::array<MenuItem, kMostCustomTools> CustMenus;
  MenuItem hyphen7;

  MenuItem HelpMenu{u"&Help"};
  MenuItem ContentsMenu{u"&Contents"};

  struct ToolEntry {
    const ::Tool* Tool;
    std::unique_ptr<MenuItem> Item;
  };
  // One for each tool that is there and has a caption, in the catalogue's order.
  std::vector<ToolEntry> ToolEntries;

 private:
  MenuItem* Separator();
  void BuildToolsMenu();

  std::vector<std::unique_ptr<MenuItem>> separators_;
  std::vector<std::unique_ptr<MenuItem>> submenus_;
};
