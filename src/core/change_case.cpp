#include "core/change_case.h"

#include <algorithm>

#include "core/command_line.h"
#include "core/kept_place.h"
#include "editor/help_topics.h"
#include "editor/plain_undo.h"
#include "platform/system/files.h"
#include "state/data_files.h"
#include "text/scoped_value.h"

namespace {

// Wide enough that no line is ever wrapped.
constexpr int kNoWrap = 400000;
constexpr int kTypingPauseMilliseconds = 1000;
constexpr StringView kUndoBroken =
    u"An serious system error occurred that prevents this function from working correctly. The "
    u"undo edit and redo edit options have been disabled.";

// A name on a menu: an "&" of its own is no mnemonic.
String MenuName(StringView name) {
  String caption;
  for (const char16_t c : name) {
    caption += c;
    if (c == u'&') caption += c;
  }
  return caption;
}

String WithKey(StringView hint, const Key& key) {
  const String name = NameOf(key);
  return name.empty() ? String(hint) : String(hint) + u" (" + name + u")";
}

}  // namespace

ChangeCase::ChangeCase(Session& session)
    : Form(session.Windows),
      session_(session),
      Fields(session.Fields),
      RichTextBox1(session.RichTextBox1),
      RichTextBox2(session.RichTextBox2),
      CommonDialog1(session.CommonDialog1),
      Messages(session.Messages),
      Tools(session.Tools),
      CustomTools(session.CustomTools),
      Editors(session.Windows, Messages, Tools, session.WorkFolder, Fields.CustomToolFile),
      Document(session.Document),
      Status(Fields, RichTextBox1, Document),
      Edit(session.Windows, RichTextBox1, ActiveControl),
      Find(RichTextBox1, Messages),
      UndoEdit(session.Windows, Fields),
      Batch(session) {
  Columns = 140;
  Lines = 36;
  WireSession();
  WireEditor();
  WireCommands();
  WireTools();
}

ChangeCase::~ChangeCase() {
  Unload();
  session_.OnStartAnew = nullptr;
  session_.OnDocumentChanged = nullptr;
  session_.OnTell = nullptr;
  session_.OnCustomToolsChanged = nullptr;
  RichTextBox1.OnChange = nullptr;
  RichTextBox1.OnSelChange = nullptr;
  RichTextBox1.OnKeyDown = nullptr;
  RichTextBox1.OnMouseDown = nullptr;
  RichTextBox1.ContextMenu = nullptr;
}

Layout ChangeCase::Content() { return Column({Picture1, RichTextBox1, Find.Layout(), Status.Bar}); }

void ChangeCase::WireSession() {
  session_.OnStartAnew = [this] {
    UndoEdit.Reset();
    Find.StartAnew();
  };
  session_.OnDocumentChanged = [this] {
    Caption = Document.Title();
    Status.ShowFormat();
  };
  session_.OnTell = [this](StringView message) { Tell(message); };
  session_.OnCustomToolsChanged = [this] { ShowCustomTools(); };
  Editors.Listed.OnListed = [this] { session_.UseCustomTools(Editors.Listed.List()); };
  Editors.Listed.OnChanged = [this] { Batch.Wizard.MassConvert2.UpdateMultiToolList(); };
  const struct {
    int Number;
    String Text;
  } pages[] = {{kHelpKeys, KeysHelpPage()}, {kHelpCommandLine, CommandLineHelpPage()}};
  for (const auto& page : pages) Messages.HelpWindow.AddPage(page.Number, page.Text);
}

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
  RichTextBox1.OnMouseDown = [this] { UndoEdit.MouseDown(); };
  RichTextBox1.ContextMenu = &Menu.EditMenu;
  UndoEdit.StateChanged = [this] { ShowUndoState(); };
  Edit.CheckSetLock = [this] { Document.CheckSetLock(); };
  // What was typed just now can be undone as well.
  Menu.EditMenu.OnOpen = [this] { UndoEdit.EndStep(); };
}

void ChangeCase::WireCommands() {
  std::vector<std::pair<int, CommandButton*>> buttons;
  for (const Command& command : Commands()) {
    if (MenuItem* item = Menu.ItemOf(command); item && command.Run)
      item->OnClick = [this, &command] { Do(command.Run, command); };
    if (command.Button == nullptr) continue;
    CommandButton& button = this->*command.Button;
    button.Icon = String(command.Icon);
    button.ToolTipText = WithKey(command.Hint, command.Keys);
    button.OnClick = [this, &command] {
      Do(command.ByButton ? command.ByButton : command.Run, command);
    };
    buttons.emplace_back(command.BarPlace, &button);
  }
  std::sort(buttons.begin(), buttons.end());
  for (const auto& [place, button] : buttons) Picture1.Buttons.push_back(button);
}

void ChangeCase::WireTools() {
  // What was typed before a tool is a step of its own.
  Menu.CustToolsMenu.OnOpen = [this] { UndoEdit.EndStep(); };
  Menu.ToolsMenu.OnOpen = [this] {
    UndoEdit.EndStep();
    RefusedOnLockedText(OnLockedText::RefuseTool);
  };
  for (const MainMenu::ToolEntry& entry : Menu.ToolEntries) {
    entry.Item->OnClick = [this, tool = entry.Tool] {
      if (RefusedWhileToolRuns() || RefusedOnLockedText(OnLockedText::RefuseTool)) return;
      RunTool(*tool);
    };
  }
  for (MenuItem* choice : Status.Choices()) {
    choice->OnClick = [this, choose = std::move(choice->OnClick)] {
      if (!RefusedWhileToolRuns()) choose();
    };
  }
}

void ChangeCase::Do(void (*run)(ChangeCase&), const Command& command) {
  if (!command.WhileRunning && RefusedWhileToolRuns()) return;
  if (!RefusedOnLockedText(command.Locked)) run(*this);
}

// While a tool lets events run, the editor may hold the selection alone, or a text that is half
// done: nothing may save it, replace it or work on it.
bool ChangeCase::RefusedWhileToolRuns() {
  if (toolRuns_) Tell(u"The program is still at work.");
  return toolRuns_;
}

bool ChangeCase::RefusedOnLockedText(OnLockedText locked) {
  if (locked == OnLockedText::Run || !RichTextBox1.Locked) return false;
  Messages.Notice(RefusalOnLockedText(locked));
  return true;
}

void ChangeCase::Load() {
  RichTextBox1.SetText(u"");
  RichTextBox2.SetText(u"");
  Menu.HorizWordWrapMenu.Checked = true;
  RichTextBox1.RightMargin = 0;
  RichTextBox2.RightMargin = 0;
  ShowCustomTools();
  Fields.FileSaved = Fields.TextChanged = false;
  session_.OnDocumentChanged();
  Status.ShowCaret();
  RichTextBox1.SetFocus();
  if (!IsBlank(Fields.CommandLine)) OpenCommandLine();
  UndoEdit.AttachRichTextBox(RichTextBox1, kTypingPauseMilliseconds);
  if (Fields.UndoBroken) HideUndo();
}

void ChangeCase::ShowCustomTools() {
  const auto& names = session_.CustomToolNames;
  for (const Command& command : Commands()) {
    if (command.CustomTool == 0) continue;
    const auto tool = names.find(command.CustomTool);
    const bool there = tool != names.end();
    MenuItem& item = *Menu.ItemOf(command);
    item.Visible = there;
    if (there) item.Caption = MenuName(tool->second);
    if (command.Button == nullptr) continue;
    CommandButton& button = this->*command.Button;
    button.Enabled = there;
    button.ToolTipText = WithKey(there ? tool->second : String(command.Hint), command.Keys);
  }
  Menu.hyphen7.Visible = Menu.CustMenus.front().Visible;
}

void ChangeCase::OpenCommandLine() {
  if (const String file = FileArgument(Fields.CommandLine); !file.empty()) OpenNamed(file);
  if (HasSwitch(Fields.CommandLine, Word::Eof)) RichTextBox1.SetSelStart(RichTextBox1.TextLength());
  if (session_.NotOpened.empty()) return;
  String message = u"One document at a time. Not opened:";
  for (const String& file : session_.NotOpened) message += u" " + file;
  Tell(message);
}

void ChangeCase::OpenNamed(const String& file) {
  String path = file;
  try {
    path = AbsolutePath(file);
    Document.OpenNamed(path);
  } catch (const RuntimeError& error) {
    if (error.Code != kFileNotFound) Tell(FromUtf8(error.what()));
    if (!HasSwitch(Fields.CommandLine, Word::NoSplash)) Document.NewNamed(path);
  }
}

void ChangeCase::ToggleWordWrap() {
  Property<bool>& wrap = Menu.HorizWordWrapMenu.Checked;
  wrap = !wrap;
  RichTextBox1.RightMargin = wrap ? 0 : kNoWrap;
  if (wrap) RichTextBox2.RightMargin = 0;
}

void ChangeCase::ShowHelp() {
  Messages.HelpWindow.Choose(kHelpContents);
  Messages.HelpWindow.Show();
}

void ChangeCase::RunTool(const Tool& tool) {
  RunAsOneStep([&tool](ToolContext& context) { RunFromMenu(context, tool); });
}

void ChangeCase::RunAsOneStep(const std::function<void(ToolContext&)>& run) {
  const ScopedValue running(toolRuns_, true);
  ToolContext context = Context();
  UndoStop();
  const KeptPlace place(RichTextBox1);
  const auto end = [&] {
    place.Restore();
    UndoStart();
  };
  try {
    run(context);
  } catch (...) {
    end();
    throw;
  }
  end();
}

void ChangeCase::RunCustomToolAsOneStep(int number) {
  if (IsBlank(*RichTextBox1.SharedText())) return;
  RunAsOneStep([this, number](ToolContext&) {
    if (const CustomToolResult result = RunCustomTool(number); !result.Cause.empty())
      Messages.Notice(result.Cause);
  });
  Document.CheckSetLock();
}

void ChangeCase::RunFromToolBar(const std::function<void()>& run) {
  RichTextBox1.SetFocus();
  UndoEdit.EndStep();
  if (Fields.ToolBusy) return;
  const ScopedValue busy(Fields.ToolBusy, true);
  run();
}

void ChangeCase::MultipleFileFlurn(int step) {
  if (RefusedWhileToolRuns()) return;
  const ScopedValue running(toolRuns_, true);
  Batch.Begin(step);
}

void ChangeCase::UndoMultipleFileFlurn() {
  const ScopedValue running(toolRuns_, true);
  Batch.ShowUndo();
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

void ChangeCase::UndoLast() {
  UndoEdit.Undo(1);
  if (Fields.UndoBroken) TellUndoBroken();
}

void ChangeCase::UndoFromToolBar() {
  RichTextBox1.SetFocus();
  if (Fields.UndoBroken)
    PlainUndo(Fields, RichTextBox1, Messages, Windows());
  else
    UndoLast();
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
