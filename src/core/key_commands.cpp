#include "core/key_commands.h"

#include "core/change_case.h"

namespace {

struct Command {
  int Key;
  bool Control;
  bool Swallowed;
  void (*Run)(ChangeCase&);
};

constexpr Command kCommands[] = {
    {kKeyF1 + 8, false, false, [](ChangeCase& app) { app.Menu.HorizWordWrapMenu.Click(); }},
    {kKeyF1 + 10, false, false,
     [](ChangeCase& app) {
       // What is selected is the editor's text, so that is what the copy is of.
       app.ActiveControl = &app.RichTextBox1;
       app.RichTextBox1.SetFocus();
       app.Menu.SelectAllMenu.Click();
       app.Menu.CopyMenu.Click();
     }},
    {kKeyF1 + 11, false, false, [](ChangeCase& app) { app.Menu.ContentsMenu.Click(); }},
    {'F', true, true,
     [](ChangeCase& app) {
       if (app.Find.IsOpen())
         app.Find.cmdReturn.Click();
       else
         app.Menu.FindMenu.Click();
     }},
    {'T', true, true, [](ChangeCase& app) { app.Menu.FindNextMenu.Click(); }},
    {'X', true, true, [](ChangeCase& app) { app.Menu.CutMenu.Click(); }},
    {'N', true, true, [](ChangeCase& app) { app.Menu.NewMenu.Click(); }},
    {'O', true, true, [](ChangeCase& app) { app.Menu.OpenMenu.Click(); }},
    {'S', true, true, [](ChangeCase& app) { app.Menu.SaveMenu.Click(); }},
};

}  // namespace

bool RunKeyCommand(ChangeCase& app, const KeyEvent& key) {
  FindPanel& find = app.Find;
  if (find.IsOpen() && key.Key == kKeyEscape) return find.Close(), true;
  if (key.Key == kKeyReturn && app.ActiveControl == &find.txtFindText)
    return find.cmdFind.Click(), true;
  // With Alt it is a menu's letter, a key of the desktop or, together with Ctrl, a character.
  if (key.Alt) return false;
  for (const Command& command : kCommands) {
    if (command.Key != key.Key || command.Control != key.Control) continue;
    command.Run(app);
    return command.Swallowed;
  }
  const int custom = key.Key - kKeyF1;
  if (custom >= 0 && custom < kMostCustomTools && !key.Control) {
    app.UndoEdit.EndStep();
    app.Menu.CustMenus[static_cast<std::size_t>(custom)].Click();
  }
  return false;
}
