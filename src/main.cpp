// Chooses between a window and an unattended run, before anything of a window system is loaded.

#include <iostream>
#include <string_view>
#include <vector>

#include "core/command_line.h"
#include "core/startup.h"
#include "core/unattended_run.h"
#include "editor/messages.h"
#include "platform/console/console_window_system.h"
#include "platform/system/memory.h"
#include "platform/system/signals.h"
#include "platform/system/terminal.h"
#include "platform/window/window_module.h"
#include "text/runtime_error.h"
#include "tools/tool_on_files.h"

namespace {

constexpr std::string_view kVersion = "WordFlurn 2.0\n";

constexpr std::string_view kHelp =
    R"(Usage: wordflurn [FILE] [SWITCHES]
       wordflurn --tool NAME FILE...

Edits plain text in a window. FILE need not exist yet.

Switches, in any case:
  /NOSPLASH     start without the splash window
  /EOF          put the caret behind the last character
  /AUTO:NAME    run the custom tool NAME on FILE without a window, save the
                file, and exit
  /SAVETOLOCATION:FOLDER  with /AUTO: save the result in FOLDER
  /ADDPREFIX:TEXT         with /AUTO: put TEXT in front of the result's name
  /SAVEASHTMLFILE         with /AUTO: the result's name ends in .html
  /NOHTMLHEADERFOOTER     with /AUTO: Convert to HTML writes no page frame
  /EMAILSTD     run Email Cleanup - Standard on the clipboard's text and exit
  /EMAILPOEM    the same with Email Cleanup - Poem or List

A value ends at the next switch. One in double quotes is taken whole.

Options:
  --tool NAME   run one tool on each FILE without a window, for example
                wordflurn --tool "All Upper Case" notes.txt
  --help        show this help and exit
  --version     show the version and exit

WORDFLURN_HOME names the folder of the program's data.
Exit status: 0 done, 1 refused or impossible, 2 some files failed.
)";

std::vector<String> TextOf(int argc, char** argv) {
  std::vector<String> arguments;
  for (int i = 1; i < argc; ++i) arguments.push_back(FromUtf8(argv[i]));
  return arguments;
}

int RunTool(const std::vector<String>& arguments) {
  if (arguments.size() < 3) {
    std::cerr << "wordflurn: --tool needs the name of a tool and at least one file\n";
    return 1;
  }
  TidyUpOnSignals();
  KeepFreedMemory();
  return RunToolOnFiles(arguments[1], std::span(arguments).subspan(2));
}

// Tells on standard error, and in a window where nobody may read that.
int Tell(WindowSystem* windows, const String& text, const String& title) {
  std::cerr << "wordflurn: " << ToUtf8(text) << '\n';
  if (windows == nullptr || StandardErrorIsTerminal()) return 1;
  Messages messages(*windows);
  if (!title.empty()) messages.Notice1.Caption = title;
  messages.Notice(text);
  return 1;
}

int RunInWindow(int argc, char** argv) {
  const auto windows = LoadWindowSystem(argc, argv);
  try {
    // Only now: the window system has taken its own arguments out.
    return Main(*windows, JoinArguments(TextOf(argc, argv)));
  } catch (const RuntimeError& error) {
    return Tell(windows.get(), FromUtf8(error.what()), {});
  }
}

int RunWithoutWindow(int argc, char** argv, const String& commandLine) {
  TidyUpOnSignals();
  KeepFreedMemory();
  try {
    ConsoleWindowSystem windows;
    return Main(windows, commandLine);
  } catch (const RefusedCommandLine& refused) {
    std::unique_ptr<WindowSystem> windows;
    try {
      if (!StandardErrorIsTerminal()) windows = LoadWindowSystem(argc, argv);
    } catch (const RuntimeError&) {
      // Without a display, standard error is all there is.
    }
    return Tell(windows.get(), refused.Text, refused.Title);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view option = argc > 1 ? argv[1] : "";
  if (option == "--version") return std::cout << kVersion << std::flush ? 0 : 1;
  if (option == "--help") return std::cout << kHelp << std::flush ? 0 : 1;
  try {
    if (option == kKeepClipboardOption) return RunAsClipboardKeeper(argc, argv);
    if (option == "--tool") return RunTool(TextOf(argc, argv));
    if (option.starts_with("--")) {
      std::cerr << "wordflurn: unknown option " << option << "; see wordflurn --help\n";
      return 1;
    }
    const String commandLine = JoinArguments(TextOf(argc, argv));
    if (WantsNoWindow(commandLine)) return RunWithoutWindow(argc, argv, commandLine);
    return RunInWindow(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "wordflurn: " << error.what() << '\n';
    return 1;
  }
}
