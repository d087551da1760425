#pragma once
// The main window: it shows a session, and makes menus, keys, tool bar and status bar do what the
// table of commands says.

#include "core/main_menu.h"
#include "core/multi_flurn.h"
#include "core/session.h"
#include "core/status_line.h"
#include "custom/custom_tool_editors.h"
#include "editor/cls_undo.h"
#include "editor/edit_commands.h"
#include "editor/find_panel.h"

class ChangeCase : public Form {
 public:
  explicit ChangeCase(Session& session);
  ~ChangeCase() override;

  Layout Content() override;
  Frame Style() const override { return Frame::Main; }
  std::vector<MenuItem*> Menus() override { return Menu.Menus(); }
  void CloseByFrame() override { Exit(); }
  void KeyDown(KeyEvent& key) override;
  void DropFiles(const std::vector<String>& paths) override;

  // Ends the program unless the user wants to go on.
  void Exit();
  // Wraps a tool's run, so that its whole change is one step of undo.
  void UndoStop();
  void UndoStart();

  // What commands do.
  void UndoLast();
  void UndoFromToolBar();
  void ToggleWordWrap();
  void ShowHelp();
  void RunTool(const Tool& tool);
  void RunCustomToolAsOneStep(int number);
  void RunFromToolBar(const std::function<void()>& run);
  // Opens the wizard at a step, 1 to 4, and runs the batch.
  void MultipleFileFlurn(int step);
  void UndoMultipleFileFlurn();

  CustomToolResult RunCustomTool(int number) { return session_.RunCustomTool(number); }
  ToolContext Context() { return session_.Context(); }

 private:
  Session& session_;

 public:
  // Of the session.
  SharedFields& Fields;
  ::RichTextBox& RichTextBox1;
  ::RichTextBox& RichTextBox2;
  CommonDialog& CommonDialog1;
  ::Messages& Messages;
  ToolState& Tools;
  CustomToolRunner& CustomTools;
  CustomToolEditors Editors;
  ::Document& Document;

  MainMenu Menu;
  ToolBar Picture1;
  CommandButton Command1;   // open
  CommandButton Command2;   // new
  CommandButton Command3;   // save
  CommandButton Command7;   // undo
  CommandButton Command8;   // paste
  CommandButton Command9;   // copy all
  CommandButton Command5;   // custom tool 1
  CommandButton Command6;   // custom tool 2
  CommandButton Command10;  // Multiple File Flurn
  CommandButton Command11;  // Email Cleanup - Standard
  CommandButton Command12;  // Email Cleanup - Poem or List
  StatusLine Status;
  EditCommands Edit;
  FindPanel Find;
  clsUndo UndoEdit;
  MultiFlurn Batch;

 protected:
  void Load() override;

 private:
  void WireSession();
  void WireEditor();
  void WireCommands();
  void WireTools();
  void RunAsOneStep(const std::function<void(ToolContext&)>& run);
  // Runs a handler unless the state of the program forbids it, and says why.
  void Do(void (*run)(ChangeCase&), const Command& command);
  bool RefusedWhileToolRuns();
  bool RefusedOnLockedText(OnLockedText locked);
  void Tell(StringView message) { Status.Bar.Message = String(message); }
  void TellUndoBroken();
  void ShowUndoState();
  void HideUndo();
  void ShowCustomTools();
  void OpenCommandLine();
  void OpenNamed(const String& file);

  bool toolRuns_ = false;
};
