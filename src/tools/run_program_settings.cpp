#include "tools/run_program_settings.h"

#include <algorithm>

#include "platform/system/files.h"
#include "platform/window/window_system.h"
#include "text/runtime_error.h"

namespace {

bool LooksExecutable(const String& path) {
  const String name = UCase(path);
  constexpr StringView kExtensions[] = {u".EXE", u".COM", u".BAT"};
  return std::any_of(std::begin(kExtensions), std::end(kExtensions),
                     [&](StringView extension) { return Contains(name, extension); }) ||
         IsExecutable(path);
}

}  // namespace

RunProgramSettings::RunProgramSettings(WindowSystem& windows, Messages& messages)
    : SettingsFormOf(windows, messages, {Text1, Text2}), dialog_(windows.CreateCommonDialog()) {
  Caption = u"Run Program Settings";
  Label1.Caption =
      u"Provide the full path and filename of the program to run.  The program MUST be capable of "
      u"accepting command-line arguments and the first command-line argument that it accepts must "
      u"be a filename! You can also optionally specify any other command-line arguments that the "
      u"program accepts.";
  Label1.WordWrap = true;
  Label2.Caption = u"&Program:";
  Label3.Caption = u"Ar&guments:";
  Command1.Caption = u"&Browse";
  Command1.OnClick = [this] { Browse(); };
  Wire(Command2, Command3);
  WireHelp(Command4, kHelpRunProgram);
  Columns = 60;
}

Layout RunProgramSettings::Content() {
  return Column({Label1, Grid(3, {Label2, Text1, Command1, Label3, Text2}),
                 Row({Stretch(), Command2, Command3, Command4, Stretch()})});
}

void RunProgramSettings::Browse() {
  dialog_->DialogTitle = u"Open";
  dialog_->Flags = CommonDialog::kHideReadOnly;
  dialog_->Filter = u"Executable Files (*.exe)|*.exe|All Files (*.*)|*.*|";
  dialog_->FilterIndex = 1;
  if (dialog_->AskForFile()) Text1.Text = dialog_->FileName;
}

bool RunProgramSettings::Check() {
  const String program(Trim(Text1.Text.Get()));
  if (program.empty())
    return Refuse(u"Error: You did not enter the filename of the program to use.");
  try {
    TestReadable(program);
  } catch (const RuntimeError&) {
    return Refuse(u"Error: This program does not exist or cannot be accessed.");
  }
  if (!LooksExecutable(program) &&
      messages_.Ask(u"This file appears not to be an executable program.  Are you sure you want to "
                    u"use it?") != Answer::Yes) {
    return false;
  }
  Text1.Text = program;
  Text2.Text = String(Trim(Text2.Text.Get()));
  return true;
}
