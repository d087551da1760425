#pragma once
// The main window and application object: it owns the document, the shared fields and the windows,
// and wires menus, buttons and status bar to what they do.

#include <functional>
#include <map>
#include <memory>

#include "core/main_menu.h"
#include "core/status_line.h"
#include "custom/custom_tool_runner.h"
#include "editor/cls_undo.h"
#include "editor/document.h"
#include "editor/edit_commands.h"
#include "editor/find_panel.h"
#include "state/options.h"
#include "tools/tool_context.h"

class ChangeCase : public Form, private DocumentHost {
 public:
  // The data folder is `appFolder`, temporary files go to `workFolder`.
  ChangeCase(WindowSystem& windows, const String& appFolder, const String& workFolder,
             const String& commandLine);
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
  void UndoCancel();

  // Runs a custom tool by its number, 1 to kMostCustomTools; one that is not there does nothing.
  // Whether it came to its end.
  bool RunCustomTool(int number);
  ToolContext Context();

  SharedFields Fields;

 private:
  std::unique_ptr<RichTextBox> richTextBox1_;
  std::unique_ptr<RichTextBox> richTextBox2_;
  std::unique_ptr<CommonDialog> commonDialog1_;

 public:
  // The editor, and a hidden control that carries the printing font.
  ::RichTextBox& RichTextBox1;
  ::RichTextBox& RichTextBox2;
  CommonDialog& CommonDialog1;
  ::Messages Messages;
  ToolState Tools;
  CustomToolRunner CustomTools;
  // By number, in proper case.
  std::map<int, String> CustomToolNames;
  ::Document Document;
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
  CommandButton Command11;  // Email Cleanup - Standard
  CommandButton Command12;  // Email Cleanup - Poem or List
  StatusLine Status;
  EditCommands Edit;
  FindPanel Find;
  clsUndo UndoEdit;

 protected:
  void Load() override;

 private:
  void ApplyOptions() override;
  void StartAnew() override;
  void Tell(StringView message) override { Status.Bar.Message = String(message); }
  void DocumentChanged() override;

  void WireEditor();
  void WireMenus();
  void WireEditMenu();
  void WireToolBar();
  void GuardCommands();
  bool RefusedWhileToolRuns();
  void Use(const Options& options);
  void ToggleWordWrap();
  void UndoLast();
  void TellUndoBroken();
  void ShowUndoState();
  void HideUndo();
  void RunTool(const Tool& tool);
  void RunAsOneStep(const std::function<void(ToolContext&)>& run);
  void RunCustomToolAsOneStep(int number);
  void RunFromToolBar(const std::function<void()>& run);
  void RefuseOnEncryptedText();
  void ShowCustomTools();
  MenuItem& CustMenu(int number);
  void OpenCommandLine();
  void OpenNamed(const String& file);

  bool toolRuns_ = false;
};
