#include "core/change_case.h"

#include "core/command_line.h"
#include "core/data_files.h"
#include "editor/plain_undo.h"
#include "platform/files.h"
#include "platform/runtime_error.h"

namespace {

constexpr StringView kNoToolsOnEncryptedText =
    u"This text has been encrypted and no tools may be run on it until after it is decrypted.";
// Wide enough that no line is ever wrapped.
constexpr int kNoWrap = 400000;

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
      Document(Fields, RichTextBox1, CommonDialog1, Messages, Caption, *this),
      Status(Fields, RichTextBox1, Document) {
  SetDataPaths(Fields, appFolder, workFolder);
  Fields.CommandLine = commandLine;
  Columns = 140;
  Lines = 36;
  WireMenus();
  WireToolBar();
  RichTextBox1.OnChange = [this] {
    Document.TextHasChanged();
    Status.Bar.Message = String();
  };
  RichTextBox1.OnSelChange = [this] { Status.ShowCaret(); };
}

ChangeCase::~ChangeCase() { Unload(); }

Layout ChangeCase::Content() { return Column({Picture1, RichTextBox1, Status.Bar}); }

void ChangeCase::WireMenus() {
  Menu.NewMenu.OnClick = [this] { Document.New(); };
  Menu.OpenMenu.OnClick = [this] { Document.BOpenFile(); };
  Menu.SaveMenu.OnClick = [this] { Document.BSaveFile(); };
  Menu.SaveAsMenu.OnClick = [this] { Document.SaveAs(); };
  Menu.ExitMenu.OnClick = [this] { Exit(); };
  Menu.HorizWordWrapMenu.OnClick = [this] { ToggleWordWrap(); };
  Menu.ToolsMenu.OnOpen = [this] {
    if (RichTextBox1.Locked) RefuseOnEncryptedText();
  };
  for (const MainMenu::ToolEntry& entry : Menu.ToolEntries)
    entry.Item->OnClick = [this, tool = entry.Tool] { RunTool(*tool); };
  for (MenuItem& item : Menu.CustMenus) {
    item.OnClick = [this] {
      if (RichTextBox1.Locked)
        RefuseOnEncryptedText();
      else
        Messages.Notice(u"This version lists custom tools but cannot run them yet.");
    };
  }
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
      {Command7, u"undo", u"Undo the last tool",
       [](ChangeCase& app) {
         app.RichTextBox1.SetFocus();
         PlainUndo(app.Fields, app.RichTextBox1, app.Messages, app.Windows());
       }},
  };
  for (const ToolButton& tool : buttons) {
    tool.Button.Icon = String(tool.Icon);
    tool.Button.ToolTipText = String(tool.Tip);
    tool.Button.OnClick = [this, press = tool.Press] { press(*this); };
    Picture1.Buttons.push_back(&tool.Button);
  }
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
}

void ChangeCase::ShowCustomTools() {
  for (const auto& [number, name] : ReadCustomToolNames(Fields.CustomToolFile)) {
    MenuItem& item = Menu.CustMenus.at(static_cast<std::size_t>(number) - 1);
    item.Caption = name;
    item.Visible = true;
    Fields.CustomToolCount = number;
  }
  Menu.CustToolsMenu.Visible = Fields.CustomToolCount > 0;
}

void ChangeCase::OpenCommandLine() {
  const String file = FileArgument(Fields.CommandLine);
  Fields.ViewHtmlOnStart = HasSwitch(Fields.CommandLine, u"/VIEWHTML");
  if (!file.empty()) {
    try {
      Document.OpenNamed(AbsolutePath(file));
    } catch (const RuntimeError& error) {
      if (error.Code != kFileNotFound) Tell(FromUtf8(error.what()));
      if (!HasSwitch(Fields.CommandLine, u"/NOSPLASH")) Document.NewNamed(AbsolutePath(file));
    }
  }
  if (HasSwitch(Fields.CommandLine, u"/EOF")) RichTextBox1.SetSelStart(RichTextBox1.TextLength());
}

void ChangeCase::ApplyOptions() {
  Options options;
  try {
    options = ReadOptions(Fields.OptionsFile);
    if (!IsBlank(options.StartupFolder)) {
      const String here = CurrentFolder();
      SetCurrentFolder(options.StartupFolder);
      SetCurrentFolder(here);
      CommonDialog1.InitDir = options.StartupFolder;
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
  ToolContext context = Context();
  UndoStop();
  tool.Run(context);
  UndoStart();
}

void ChangeCase::UndoStop() {
  if (!IsBlank(RichTextBox1.Text())) Fields.ToolUndoPending = true;
}

void ChangeCase::UndoStart() { Fields.ToolUndoPending = false; }

void ChangeCase::UndoCancel() { Fields.ToolUndoPending = false; }

void ChangeCase::DropFiles(const std::vector<String>& paths) {
  if (!paths.empty()) Document.OpenDropped(paths.front());
}

void ChangeCase::Exit() {
  if (!Document.MayExit()) return;
  DeleteTemporaryFiles(Fields);
  Windows().Quit(0);
}

ToolContext ChangeCase::Context() { return {Fields, RichTextBox1, Messages, Windows()}; }
