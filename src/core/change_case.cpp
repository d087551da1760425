#include "core/change_case.h"

#include "core/command_line.h"
#include "core/key_commands.h"
#include "core/unattended_run.h"
#include "editor/help_topics.h"
#include "editor/plain_undo.h"
#include "platform/system/files.h"
#include "state/data_files.h"
#include "text/runtime_error.h"
#include "text/scoped_value.h"
#include "tools/character_repair.h"

namespace {

constexpr StringView kNoToolsOnEncryptedText =
    u"This text has been encrypted and no tools may be run on it until after it is decrypted.";
// Wide enough that no line is ever wrapped.
constexpr int kNoWrap = 400000;
constexpr int kTypingPauseMilliseconds = 1000;
constexpr StringView kUndoBroken =
    u"An serious system error occurred that prevents this function from working correctly. The "
    u"undo edit and redo edit options have been disabled.";

// A name on a menu: an "&" of its own is no mnemonic, and it leaves the screen some room.
String MenuName(StringView name) {
  constexpr std::size_t kLongest = 80;
  String caption;
  for (const char16_t c : name.substr(0, kLongest)) {
    caption += c;
    if (c == u'&') caption += c;
  }
  if (name.size() > kLongest) caption += u'\u2026';
  return caption;
}

}  // namespace

ChangeCase::ChangeCase(WindowSystem& windows, const String& appFolder, const String& workFolder,
                       const String& commandLine)
    : Form(windows),
      richTextBox1_(windows.CreateRichTextBox()),
      richTextBox2_(windows.CreateRichTextBox()),
      commonDialog1_(windows.CreateCommonDialog()),
      RichTextBox1(*richTextBox1_),
      RichTextBox2(*richTextBox2_),
      CommonDialog1(*commonDialog1_),
      Messages(windows),
      Tools(windows, Messages),
      CustomTools(windows),
      Document(Fields, RichTextBox1, CommonDialog1, Messages, Caption, *this),
      Status(Fields, RichTextBox1, Document),
      Edit(windows, RichTextBox1, ActiveControl, Messages),
      Find(RichTextBox1, Messages),
      UndoEdit(windows, Fields) {
  SetDataPaths(Fields, appFolder, workFolder);
  Fields.CommandLine = commandLine;
  Columns = 140;
  Lines = 36;
  WireEditor();
  WireMenus();
  WireEditMenu();
  WireToolBar();
  GuardCommands();
}

ChangeCase::~ChangeCase() { Unload(); }

Layout ChangeCase::Content() { return Column({Picture1, RichTextBox1, Find.Layout(), Status.Bar}); }

void ChangeCase::WireEditor() {
  RichTextBox1.OnChange = [this] {
    Document.TextHasChanged();
    Status.Bar.Message = String();
    UndoEdit.ControlChanged();
    ShowUndoState();
  };
  RichTextBox1.OnSelChange = [this] {
    Status.ShowCaret();
    UndoEdit.SelectionChanged();
  };
  RichTextBox1.OnKeyDown = [this](KeyEvent& key) {
    // Ctrl+Z is no menu's command here.
    if (toolRuns_) return;
    const bool controlAlone = key.Control && !key.Shift && !key.Alt;
    if (controlAlone && key.Key == 'V' && !RichTextBox1.Locked) Edit.BeforeKeyPaste();
    UndoEdit.KeyDown(key);
    if (key.Handled && Fields.UndoBroken) TellUndoBroken();
  };
  RichTextBox1.OnPaste = [this] { Document.CheckSetLock(); };
  RichTextBox1.OnMouseDown = [this] { UndoEdit.MouseDown(); };
  RichTextBox1.ContextMenu = &Menu.EditMenu;
  UndoEdit.StateChanged = [this] { ShowUndoState(); };
  Edit.CheckSetLock = [this] { Document.CheckSetLock(); };
}

void ChangeCase::WireMenus() {
  Menu.NewMenu.OnClick = [this] { Document.New(); };
  Menu.OpenMenu.OnClick = [this] { Document.BOpenFile(); };
  Menu.SaveMenu.OnClick = [this] { Document.BSaveFile(); };
  Menu.SaveAsMenu.OnClick = [this] { Document.SaveAs(); };
  Menu.ExitMenu.OnClick = [this] { Exit(); };
  Menu.HorizWordWrapMenu.OnClick = [this] { ToggleWordWrap(); };
  // What was typed before a tool is a step of its own.
  Menu.CustToolsMenu.OnOpen = [this] { UndoEdit.EndStep(); };
  Menu.ToolsMenu.OnOpen = [this] {
    UndoEdit.EndStep();
    if (RichTextBox1.Locked) RefuseOnEncryptedText();
  };
  for (const MainMenu::ToolEntry& entry : Menu.ToolEntries)
    entry.Item->OnClick = [this, tool = entry.Tool] { RunTool(*tool); };
  for (int number = 1; number <= kMostCustomTools; ++number)
    CustMenu(number).OnClick = [this, number] { RunCustomToolAsOneStep(number); };
  Menu.ContentsMenu.OnClick = [this] {
    Messages.HelpWindow.Choose(kHelpContents);
    Messages.HelpWindow.Show();
  };
}

void ChangeCase::WireEditMenu() {
  Menu.UndoEditMenu.OnClick = [this] { UndoLast(); };
  Menu.RedoEditMenu.OnClick = [this] { UndoEdit.Redo(1); };
  Menu.CutMenu.OnClick = [this] {
    UndoEdit.EndStep();
    Edit.Cut();
  };
  Menu.CopyMenu.OnClick = [this] { Edit.Copy(); };
  Menu.CopyAllMenu.OnClick = [this] { Edit.CopyAll(); };
  Menu.PasteMenu.OnClick = [this] { Edit.Paste(); };
  Menu.DeleteMenu.OnClick = [this] { Edit.Delete(); };
  Menu.SelectAllMenu.OnClick = [this] { Edit.SelectAll(); };
  Menu.FindMenu.OnClick = [this] { Find.Open(); };
  Menu.FindNextMenu.OnClick = [this] { Find.FindNext(); };
  // What was typed just now can be undone as well.
  Menu.EditMenu.OnOpen = [this] { UndoEdit.EndStep(); };
}

void ChangeCase::WireToolBar() {
  struct ToolButton {
    CommandButton& Button;
    StringView Icon;
    StringView Tip;
    void (*Press)(ChangeCase&);
  };
  const ToolButton buttons[] = {
      {Command1, u"open", u"Open (Ctrl+O)", [](ChangeCase& app) { app.Document.BOpenFile(); }},
      {Command2, u"new", u"New (Ctrl+N)", [](ChangeCase& app) { app.Document.New(); }},
      {Command3, u"save", u"Save (Ctrl+S)", [](ChangeCase& app) { app.Document.BSaveFile(); }},
      {Command9, u"copy-all", u"Copy All (F11)", [](ChangeCase& app) { app.Edit.CopyAll(); }},
      {Command8, u"paste", u"Paste (Ctrl+V)", [](ChangeCase& app) { app.Edit.Paste(); }},
      {Command7, u"undo", u"Undo (Ctrl+Z)",
       [](ChangeCase& app) {
         app.RichTextBox1.SetFocus();
         if (app.Fields.UndoBroken)
           PlainUndo(app.Fields, app.RichTextBox1, app.Messages, app.Windows());
         else
           app.UndoLast();
       }},
      {Command5, u"custom-tool-1", u"Custom Tool 1 (F1)",
       [](ChangeCase& app) { app.RunFromToolBar([&app] { app.RunCustomToolAsOneStep(1); }); }},
      {Command6, u"custom-tool-2", u"Custom Tool 2 (F2)",
       [](ChangeCase& app) { app.RunFromToolBar([&app] { app.RunCustomToolAsOneStep(2); }); }},
      {Command11, u"email", u"Email Cleanup - Standard",
       [](ChangeCase& app) {
         app.RunFromToolBar([&app] { app.RunAsOneStep(EmailCleanupFromMenu); });
       }},
      {Command12, u"email-poem", u"Email Cleanup - Poem or List",
       [](ChangeCase& app) {
         app.RunFromToolBar([&app] { app.RunAsOneStep(EmailCleanupPoemFromMenu); });
       }},
  };
  for (const ToolButton& tool : buttons) {
    tool.Button.Icon = String(tool.Icon);
    tool.Button.ToolTipText = String(tool.Tip);
    tool.Button.OnClick = [this, press = tool.Press] { press(*this); };
    Picture1.Buttons.push_back(&tool.Button);
  }
}

// While a tool lets events run, the editor may hold the selection alone, or a text that is half
// done: nothing may save it, replace it or work on it.
void ChangeCase::GuardCommands() {
  const auto guard = [this](std::function<void()>& command) {
    if (!command) return;
    command = [this, run = std::move(command)] {
      if (!RefusedWhileToolRuns()) run();
    };
  };
  std::vector<MenuItem*> items = Menu.Menus();
  while (!items.empty()) {
    MenuItem& item = *items.back();
    items.pop_back();
    guard(item.OnClick);
    items.insert(items.end(), item.Items.begin(), item.Items.end());
  }
  for (CommandButton* button : Picture1.Buttons) guard(button->OnClick);
}

bool ChangeCase::RefusedWhileToolRuns() {
  if (toolRuns_) Tell(u"A tool is still running.");
  return toolRuns_;
}

void ChangeCase::Load() {
  DeleteTemporaryFiles(Fields);
  RichTextBox1.SetText(u"");
  RichTextBox2.SetText(u"");
  CommonDialog1.FileName.clear();
  Menu.HorizWordWrapMenu.Checked = true;
  RichTextBox1.RightMargin = 0;
  RichTextBox2.RightMargin = 0;
  Caption = String(kUntitled);
  ShowCustomTools();
  ApplyOptions();
  Fields.FileSaved = Fields.TextChanged = false;
  Fields.SaveToLocation.clear();
  Fields.AddPrefix.clear();
  DocumentChanged();
  Status.ShowCaret();
  RichTextBox1.SetFocus();
  if (!IsBlank(Fields.CommandLine)) OpenCommandLine();
  UndoEdit.AttachRichTextBox(RichTextBox1, kTypingPauseMilliseconds);
  if (Fields.UndoBroken) HideUndo();
}

void ChangeCase::ShowCustomTools() {
  CustomToolList list = ReadCustomToolNames(Fields.CustomToolFile);
  CustomToolNames = std::move(list.Names);
  Fields.CustomToolCount = list.Count;
  for (MenuItem& item : Menu.CustMenus) item.Visible = false;
  for (const auto& [number, name] : CustomToolNames) {
    CustMenu(number).Caption = MenuName(name);
    CustMenu(number).Visible = true;
  }
  const auto describe = [this](CommandButton& button, int number, StringView key) {
    const auto tool = CustomToolNames.find(number);
    button.Enabled = tool != CustomToolNames.end();
    if (button.Enabled) button.ToolTipText = tool->second + String(key);
  };
  describe(Command5, 1, u" (F1)");
  describe(Command6, 2, u" (F2)");
  Menu.hyphen7.Visible = Menu.CustMenus.front().Visible;
  Menu.CustToolsMenu.Visible = Fields.CustomToolCount > 0;
}

void ChangeCase::OpenCommandLine() {
  if (const auto status = RunUnattended(*this)) return Windows().Quit(*status);
  Fields.ViewHtmlOnStart = HasSwitch(Fields.CommandLine, u"/VIEWHTML");
  if (const String file = FileArgument(Fields.CommandLine); !file.empty()) OpenNamed(file);
  if (HasSwitch(Fields.CommandLine, u"/EOF")) RichTextBox1.SetSelStart(RichTextBox1.TextLength());
}

void ChangeCase::OpenNamed(const String& file) {
  String path = file;
  try {
    path = AbsolutePath(file);
    Document.OpenNamed(path);
  } catch (const RuntimeError& error) {
    if (error.Code != kFileNotFound) Tell(FromUtf8(error.what()));
    if (!HasSwitch(Fields.CommandLine, u"/NOSPLASH")) Document.NewNamed(path);
  }
}

void ChangeCase::ApplyOptions() {
  Options options;
  try {
    options = ReadOptions(Fields.OptionsFile);
    if (!IsBlank(options.StartupFolder)) {
      const String here = CurrentFolder();
      SetCurrentFolder(options.StartupFolder);
      SetCurrentFolder(here);
      CommonDialog1.InitDir = Tools.HTML.CommonDialog1.InitDir = options.StartupFolder;
    }
    for (const String& file : {options.DefaultHeaderFile, options.DefaultFooterFile}) {
      if (!IsBlank(file)) TestReadable(file);
    }
  } catch (const std::exception&) {
    options = {};
  }
  Use(options);
}

void ChangeCase::Use(const Options& options) {
  RichTextBox1.Font = options.ViewFont;
  RichTextBox2.Font = options.PrintFont;
  Fields.DefaultHeaderFile = options.DefaultHeaderFile;
  Fields.DefaultFooterFile = options.DefaultFooterFile;
  Fields.ViewFontName = options.ViewFont.Name;
  Fields.ViewFontSize = static_cast<int>(options.ViewFont.Size);
  Fields.ViewFontBold = options.ViewFont.Bold;
}

void ChangeCase::DocumentChanged() { Status.ShowFormat(); }

void ChangeCase::ToggleWordWrap() {
  Property<bool>& wrap = Menu.HorizWordWrapMenu.Checked;
  wrap = !wrap;
  RichTextBox1.RightMargin = wrap ? 0 : kNoWrap;
  if (wrap) RichTextBox2.RightMargin = 0;
}

void ChangeCase::RefuseOnEncryptedText() { Messages.Notice(kNoToolsOnEncryptedText); }

void ChangeCase::RunTool(const Tool& tool) {
  if (RichTextBox1.Locked) return RefuseOnEncryptedText();
  RunAsOneStep(tool.Click ? tool.Click : tool.Run);
}

bool ChangeCase::RunCustomTool(int number) {
  if (!CustomToolNames.contains(number)) return true;
  ToolContext context = Context();
  return CustomTools.Run(context, number);
}

void ChangeCase::RunAsOneStep(const std::function<void(ToolContext&)>& run) {
  const ScopedValue running(toolRuns_, true);
  ToolContext context = Context();
  UndoStop();
  try {
    run(context);
  } catch (...) {
    UndoStart();
    throw;
  }
  UndoStart();
}

void ChangeCase::RunCustomToolAsOneStep(int number) {
  if (RichTextBox1.Locked) return RefuseOnEncryptedText();
  if (IsBlank(*RichTextBox1.SharedText())) return;
  RunAsOneStep([this, number](ToolContext&) { RunCustomTool(number); });
  Document.CheckSetLock();
}

void ChangeCase::RunFromToolBar(const std::function<void()>& run) {
  if (RichTextBox1.Locked) return RefuseOnEncryptedText();
  RichTextBox1.SetFocus();
  UndoEdit.EndStep();
  if (Fields.ToolBusy) return;
  const ScopedValue busy(Fields.ToolBusy, true);
  run();
}

void ChangeCase::UndoStop() {
  if (IsBlank(*RichTextBox1.SharedText())) return;
  Fields.ToolUndoPending = true;
  UndoEdit.TakeUndoSnapShot();
  UndoEdit.Suspend(true);
}

void ChangeCase::UndoStart() {
  UndoEdit.Suspend(false);
  Fields.ToolUndoPending = false;
}

void ChangeCase::UndoCancel() { Fields.ToolUndoPending = false; }

void ChangeCase::StartAnew() {
  UndoEdit.Reset();
  Find.StartAnew();
}

void ChangeCase::UndoLast() {
  UndoEdit.Undo(1);
  if (Fields.UndoBroken) TellUndoBroken();
}

void ChangeCase::TellUndoBroken() {
  if (!Menu.UndoEditMenu.Visible) return;
  Messages.Notice(kUndoBroken);
  HideUndo();
}

void ChangeCase::HideUndo() {
  for (MenuItem* item : {&Menu.UndoEditMenu, &Menu.RedoEditMenu, &Menu.hyphen9})
    item->Visible = false;
}

void ChangeCase::ShowUndoState() {
  // A broken engine is told of at the next undo, so that must be possible.
  const bool typing = UndoEdit.TypingPends();
  Menu.UndoEditMenu.Enabled = Command7.Enabled = typing || UndoEdit.CanUndo() || Fields.UndoBroken;
  Menu.RedoEditMenu.Enabled = UndoEdit.CanRedo();
  const auto name = [](MenuItem& item, clsUndo::Kind kind, StringView edit, StringView tool) {
    item.Caption = String(kind == clsUndo::kTool ? tool : edit);
  };
  name(Menu.UndoEditMenu, typing ? clsUndo::kInserted : UndoEdit.UndoKind(UndoEdit.UndoCount()),
       u"&Undo Edit", u"&Undo Tool");
  name(Menu.RedoEditMenu, UndoEdit.RedoKind(UndoEdit.RedoCount()), u"&Redo Edit", u"&Redo Tool");
}

void ChangeCase::KeyDown(KeyEvent& key) {
  // A key held down must not run a command inside itself.
  if (Fields.ToolBusy) return;
  const ScopedValue busy(Fields.ToolBusy, true);
  key.Handled = RunKeyCommand(*this, key);
}

void ChangeCase::DropFiles(const std::vector<String>& paths) {
  if (paths.empty() || RefusedWhileToolRuns()) return;
  Document.OpenDropped(paths.front());
  if (paths.size() > 1) Tell(u"One document at a time: only the first file was opened.");
}

void ChangeCase::Exit() {
  if (RefusedWhileToolRuns() || !Document.MayExit()) return;
  DeleteTemporaryFiles(Fields);
  Windows().Quit(0);
}

MenuItem& ChangeCase::CustMenu(int number) {
  return Menu.CustMenus.at(static_cast<std::size_t>(number) - 1);
}

ToolContext ChangeCase::Context() { return {Fields, RichTextBox1, Messages, Windows(), Tools}; }
