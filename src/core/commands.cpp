#include "core/commands.h"

#include "core/change_case.h"

namespace {

using enum OnLockedText;

constexpr int kDelete = 46;

constexpr Key Ctrl(char letter) { return {letter, true}; }
constexpr Key OfControl(char letter) { return {letter, true, true}; }
constexpr Key F(int number) { return {kKeyF1 + number - 1}; }

constexpr Command Line(MenuItem MainMenu::*menu, MenuItem MainMenu::*item = nullptr) {
  return {.Menu = menu, .Item = item};
}

template <int number>
void RunCustomTool(ChangeCase& app) {
  app.RunCustomToolAsOneStep(number);
}

template <int number>
void RunCustomToolFromToolBar(ChangeCase& app) {
  app.RunFromToolBar([&app] { app.RunCustomToolAsOneStep(number); });
}

template <int number>
constexpr Command CustomTool(CommandButton ChangeCase::*button = nullptr, int place = 0,
                             StringView icon = {}) {
  constexpr StringView kNames[] = {u"Custom Tool 1", u"Custom Tool 2", u"Custom Tool 3",
                                   u"Custom Tool 4", u"Custom Tool 5", u"Custom Tool 6",
                                   u"Custom Tool 7", u"Custom Tool 8"};
  return {.Menu = &MainMenu::CustToolsMenu,
          .CustomTool = number,
          .Keys = F(number),
          .Button = button,
          .BarPlace = place,
          .Icon = icon,
          .Hint = kNames[number - 1],
          .Run = RunCustomTool<number>,
          .ByButton = RunCustomToolFromToolBar<number>,
          .Locked = RefuseTool};
}

void RunToolFromToolBar(ChangeCase& app, StringView storedName) {
  app.RunFromToolBar([&app, storedName] { app.RunTool(*FindTool(storedName)); });
}

template <int step>
void OpenWizard(ChangeCase& app) {
  app.MultipleFileFlurn(step);
}

template <int step>
constexpr Command WizardKey(Key keys, StringView hint) {
  return {.Keys = keys, .Hint = hint, .Run = OpenWizard<step>, .ByKey = OpenWizard<step>};
}

constexpr Command kCommands[] = {
    {.Menu = &MainMenu::FileMenu,
     .Item = &MainMenu::NewMenu,
     .Caption = u"&New",
     .Keys = Ctrl('N'),
     .Button = &ChangeCase::Command2,
     .BarPlace = 2,
     .Icon = u"new",
     .Hint = u"New",
     .Run = [](ChangeCase& app) { app.Document.New(); }},
    {.Menu = &MainMenu::FileMenu,
     .Item = &MainMenu::OpenMenu,
     .Caption = u"&Open...",
     .Keys = Ctrl('O'),
     .Button = &ChangeCase::Command1,
     .BarPlace = 1,
     .Icon = u"open",
     .Hint = u"Open",
     .Run = [](ChangeCase& app) { app.Document.BOpenFile(); }},
    {.Menu = &MainMenu::FileMenu,
     .Item = &MainMenu::SaveMenu,
     .Caption = u"&Save",
     .Keys = Ctrl('S'),
     .Button = &ChangeCase::Command3,
     .BarPlace = 3,
     .Icon = u"save",
     .Hint = u"Save",
     .Run = [](ChangeCase& app) { app.Document.BSaveFile(); }},
    {.Menu = &MainMenu::FileMenu,
     .Item = &MainMenu::SaveAsMenu,
     .Caption = u"Save &As...",
     .Run = [](ChangeCase& app) { app.Document.SaveAs(); }},
    Line(&MainMenu::FileMenu),
    {.Menu = &MainMenu::FileMenu,
     .Item = &MainMenu::MultiMenu,
     .Caption = u"&Multiple File Flurn",
     .Keys = Ctrl('1'),
     .Button = &ChangeCase::Command10,
     .BarPlace = 9,
     .Icon = u"batch",
     .Hint = u"Multiple File Flurn",
     .Run = OpenWizard<1>},
    WizardKey<2>(Ctrl('2'), u"Multiple File Flurn, from the files on"),
    WizardKey<3>(Ctrl('3'), u"Multiple File Flurn, from the tools on"),
    WizardKey<4>(Ctrl('4'), u"Multiple File Flurn, from the name on"),
    Line(&MainMenu::FileMenu),
    {.Menu = &MainMenu::FileMenu,
     .Item = &MainMenu::ExitMenu,
     .Caption = u"E&xit",
     .Run = [](ChangeCase& app) { app.Exit(); }},

    {.Menu = &MainMenu::EditMenu,
     .Item = &MainMenu::UndoEditMenu,
     .Caption = u"&Undo Edit",
     .Keys = OfControl('Z'),
     .Button = &ChangeCase::Command7,
     .BarPlace = 6,
     .Icon = u"undo",
     .Hint = u"Undo",
     .Run = [](ChangeCase& app) { app.UndoLast(); },
     .ByButton = [](ChangeCase& app) { app.UndoFromToolBar(); }},
    {.Menu = &MainMenu::EditMenu,
     .Item = &MainMenu::RedoEditMenu,
     .Caption = u"&Redo Edit",
     .Keys = OfControl('Y'),
     .Hint = u"Redo",
     .Run = [](ChangeCase& app) { app.UndoEdit.Redo(1); }},
    Line(&MainMenu::EditMenu, &MainMenu::hyphen9),
    {.Menu = &MainMenu::EditMenu,
     .Item = &MainMenu::UndoMFFMenu,
     .Caption = u"Undo &Multiple File Flurn",
     .Run = [](ChangeCase& app) { app.UndoMultipleFileFlurn(); }},
    Line(&MainMenu::EditMenu),
    {.Menu = &MainMenu::EditMenu,
     .Item = &MainMenu::CutMenu,
     .Caption = u"Cu&t",
     .Keys = Ctrl('X'),
     .Hint = u"Cut",
     .Run =
         [](ChangeCase& app) {
           app.UndoEdit.EndStep();
           app.Edit.Cut();
         },
     .Locked = RefuseEditing},
    {.Menu = &MainMenu::EditMenu,
     .Item = &MainMenu::CopyMenu,
     .Caption = u"&Copy",
     .Keys = OfControl('C'),
     .Hint = u"Copy",
     .Run = [](ChangeCase& app) { app.Edit.Copy(); },
     .Locked = RefuseEditing},
    {.Menu = &MainMenu::EditMenu,
     .Item = &MainMenu::CopyAllMenu,
     .Caption = u"C&opy All",
     .Keys = F(11),
     .Button = &ChangeCase::Command9,
     .BarPlace = 4,
     .Icon = u"copy-all",
     .Hint = u"Copy All",
     .Run = [](ChangeCase& app) { app.Edit.CopyAll(); },
     .ByKey =
         [](ChangeCase& app) {
           // What is selected is the editor's text, and Copy is to go on from there.
           app.ActiveControl = &app.RichTextBox1;
           app.RichTextBox1.SetFocus();
           app.Menu.SelectAllMenu.Click();
           app.Menu.CopyMenu.Click();
         },
     .Locked = RefuseEditing},
    {.Menu = &MainMenu::EditMenu,
     .Item = &MainMenu::PasteMenu,
     .Caption = u"&Paste",
     .Keys = OfControl('V'),
     .Button = &ChangeCase::Command8,
     .BarPlace = 5,
     .Icon = u"paste",
     .Hint = u"Paste",
     .Run = [](ChangeCase& app) { app.Edit.Paste(); },
     .Locked = RefusePasting},
    {.Menu = &MainMenu::EditMenu,
     .Item = &MainMenu::DeleteMenu,
     .Caption = u"De&lete",
     .Keys = {kDelete, false, true},
     .Hint = u"Delete",
     .Run = [](ChangeCase& app) { app.Edit.Delete(); },
     .Locked = RefuseEditing},
    {.Menu = &MainMenu::EditMenu,
     .Item = &MainMenu::SelectAllMenu,
     .Caption = u"Select &All",
     .Keys = OfControl('A'),
     .Hint = u"Select everything",
     .Run = [](ChangeCase& app) { app.Edit.SelectAll(); }},
    Line(&MainMenu::EditMenu),
    {.Menu = &MainMenu::EditMenu,
     .Item = &MainMenu::FindMenu,
     .Caption = u"&Find",
     .Keys = Ctrl('F'),
     .Hint = u"Open and close the search panel",
     .Run = [](ChangeCase& app) { app.Find.Open(); },
     .ByKey =
         [](ChangeCase& app) {
           if (app.Find.IsOpen())
             app.Find.cmdReturn.Click();
           else
             app.Menu.FindMenu.Click();
         }},
    {.Menu = &MainMenu::EditMenu,
     .Item = &MainMenu::FindNextMenu,
     .Caption = u"Find &Next",
     .Keys = Ctrl('T'),
     .Hint = u"Find the next place",
     .Run = [](ChangeCase& app) { app.Find.FindNext(); }},

    {.Menu = &MainMenu::ViewMenu,
     .Item = &MainMenu::HorizWordWrapMenu,
     .Caption = u"&Word Wrap",
     .Keys = F(9),
     .Hint = u"Word wrap on or off",
     .Run = [](ChangeCase& app) { app.ToggleWordWrap(); }},

    CustomTool<1>(&ChangeCase::Command5, 7, u"custom-tool-1"),
    CustomTool<2>(&ChangeCase::Command6, 8, u"custom-tool-2"),
    CustomTool<3>(),
    CustomTool<4>(),
    CustomTool<5>(),
    CustomTool<6>(),
    CustomTool<7>(),
    CustomTool<8>(),
    Line(&MainMenu::CustToolsMenu, &MainMenu::hyphen7),
    {.Menu = &MainMenu::CustToolsMenu,
     .Item = &MainMenu::CreateCustMenu,
     .Caption = u"Create a Custom Tool",
     .Run = [](ChangeCase& app) { app.Editors.CreateTool.Begin(); }},
    {.Menu = &MainMenu::CustToolsMenu,
     .Item = &MainMenu::EditCustMenu,
     .Caption = u"Edit a Custom Tool",
     .Run = [](ChangeCase& app) { app.Editors.EditTool1.Begin(); }},

    {.Menu = &MainMenu::HelpMenu,
     .Item = &MainMenu::ContentsMenu,
     .Caption = u"&Contents",
     .Keys = F(12),
     .Hint = u"This help",
     .Run = [](ChangeCase& app) { app.ShowHelp(); },
     .WhileRunning = true},

    {.Button = &ChangeCase::Command11,
     .BarPlace = 10,
     .Icon = u"email",
     .Hint = kEmailStandard,
     .Run = [](ChangeCase& app) { RunToolFromToolBar(app, kEmailStandard); },
     .Locked = RefuseTool},
    {.Button = &ChangeCase::Command12,
     .BarPlace = 11,
     .Icon = u"email-poem",
     .Hint = kEmailPoem,
     .Run = [](ChangeCase& app) { RunToolFromToolBar(app, kEmailPoem); },
     .Locked = RefuseTool},
};

static_assert(kMostCustomTools == 8);

}  // namespace

std::span<const Command> Commands() { return kCommands; }

StringView RefusalOnLockedText(OnLockedText locked) {
  switch (locked) {
    case RefuseTool:
      return u"This text has been encrypted and no tools may be run on it until after it is "
             u"decrypted.";
    case RefuseEditing:
      return u"This text has been encrypted and no editing tasks may be done until after it is "
             u"decrypted.";
    case RefusePasting:
      return u"This text has been encrypted and no editing may be done until after it is "
             u"decrypted.";
    case OnLockedText::Run:
      break;
  }
  return {};
}

String NameOf(const Key& key) {
  if (key.Code == 0) return {};
  if (key.Code == kDelete) return u"Del";
  if (key.Code >= kKeyF1 && key.Code <= kKeyF12) return u"F" + Str(key.Code - kKeyF1 + 1);
  return (key.Control ? u"Ctrl+" : u"") + String(1, static_cast<char16_t>(key.Code));
}

bool RunKeyCommand(ChangeCase& app, const KeyEvent& key) {
  FindPanel& find = app.Find;
  if (find.IsOpen() && key.Key == kKeyEscape) return find.Close(), true;
  if (key.Key == kKeyReturn && app.ActiveControl == &find.txtFindText)
    return find.cmdFind.Click(), true;
  // With Alt it is a menu's letter, a key of the desktop or, together with Ctrl, a character.
  if (key.Alt) return false;
  for (const Command& command : kCommands) {
    const Key& own = command.Keys;
    if (own.Code == 0 || own.OfControl || own.Code != key.Key || own.Control != key.Control)
      continue;
    if (command.CustomTool > 0) app.UndoEdit.EndStep();
    if (command.ByKey)
      command.ByKey(app);
    else
      app.Menu.ItemOf(command)->Click();
    return own.Control;
  }
  return false;
}

String KeysHelpPage() {
  String page = u"Keys\n\n";
  for (const Command& command : kCommands) {
    if (command.CustomTool == 1)
      page += u"F1 to F8\tCustom Tools 1 to 8\n";
    else if (command.CustomTool == 0 && command.Keys.Code != 0)
      page += NameOf(command.Keys) + u'\t' + String(command.Hint) + u'\n';
  }
  return page;
}
