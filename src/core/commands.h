#pragma once
// The commands of the main window as one table: menus, keys, tool bar, what each may do on locked
// text and while a tool runs, and the help page of the keys.

#include <span>

#include "platform/window/bars.h"
#include "platform/window/key_event.h"

class ChangeCase;
struct MainMenu;

struct Key {
  int Code = 0;  // 0: none
  bool Control = false;
  // The control that has the keyboard sees to it by itself.
  bool OfControl = false;
};

// What locked text, which is encrypted, has a command do.
enum class OnLockedText { Run, RefuseTool, RefuseEditing, RefusePasting };

struct Command {
  // Where it stands: the menu and its entry, null for none. A custom tool's entry goes by number.
  MenuItem MainMenu::*Menu = nullptr;
  MenuItem MainMenu::*Item = nullptr;
  int CustomTool = 0;
  StringView Caption = {};
  Key Keys = {};
  // On the tool bar: null for none; its place counts from 1.
  CommandButton ChangeCase::*Button = nullptr;
  int BarPlace = 0;
  StringView Icon = {};
  // For the tool bar's hint and for the help of the keys, which takes commands that have a key.
  StringView Hint = {};
  void (*Run)(ChangeCase&) = nullptr;
  // Where the key or the button does something else than Run.
  void (*ByKey)(ChangeCase&) = nullptr;
  void (*ByButton)(ChangeCase&) = nullptr;
  OnLockedText Locked = OnLockedText::Run;
  // Allowed while a tool or a batch runs.
  bool WhileRunning = false;
};

// In the order of the menus. A row with neither entry nor button is a line between entries.
std::span<const Command> Commands();

// The notice that refuses a command on locked text; empty for Run.
StringView RefusalOnLockedText(OnLockedText locked);

// "Ctrl+N"; empty for no key.
String NameOf(const Key& key);

// Runs the command of a key, if it has one. Whether the key ends there instead of going on to the
// control that has the keyboard.
bool RunKeyCommand(ChangeCase& app, const KeyEvent& key);

// The page of the help that lists the keys, with its title.
String KeysHelpPage();
