// Chooses between a window and an unattended run, before anything of a window system is loaded.

#include <iostream>
#include <string_view>
#include <vector>

#include "core/auto_batch.h"
#include "core/clipboard_windows.h"
#include "core/startup.h"
#include "editor/messages.h"
#include "platform/system/files.h"
#include "platform/system/memory.h"
#include "platform/system/signals.h"
#include "platform/system/terminal.h"
#include "platform/window/window_module.h"
#include "state/product.h"
#include "tools/tool_on_files.h"

namespace {

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
  KeepFreedMemory();
  return RunToolOnFiles(arguments[1], std::span(arguments).subspan(2));
}

JoinedLine LineOf(int argc, char** argv) {
  return JoinArguments(TextOf(argc, argv),
                       [](const String& path) { return FileExists(path) || FolderExists(path); });
}

int Tell(const char* text) {
  std::cerr << "wordflurn: " << text << '\n';
  return 1;
}

// Tells on standard error, and in a window where nobody may read that.
int TellInWindow(WindowSystem& windows, const RuntimeError& error, const String& title) {
  Tell(error.what());
  if (StandardErrorIsTerminal() || !PersonCanSeeWindows()) return 1;
  Messages messages(windows);
  if (!title.empty()) messages.Notice1.Caption = title;
  messages.Notice(FromUtf8(error.what()));
  return 1;
}

// A tool or a batch on files: never with a window system, whether there is a display or not.
int RunOnFiles(const JoinedLine& line) {
  KeepFreedMemory();
  ConsoleWindowSystem windows;
  return RunWithoutWindow(windows, line);
}

int RunWithWindowSystem(int argc, char** argv) {
  const auto windows = LoadWindowSystem(argc, argv);
  Job job = Job::Window;
  try {
    // Only now: the window system has taken its own arguments out.
    const JoinedLine line = LineOf(argc, argv);
    job = JobOf(line.Text);
    if (job == Job::Window) return RunInWindow(*windows, line);
    if (job != Job::Clipboard) return RunOnFiles(line);
    ClipboardWindows unattended(*windows);
    return RunWithoutWindow(unattended, line);
  } catch (const RefusedCommandLine& refused) {
    return TellInWindow(*windows, refused, refused.Title);
  } catch (const RuntimeError& error) {
    return job == Job::Window ? TellInWindow(*windows, error, {}) : Tell(error.what());
  }
}

int Refuse(int argc, char** argv, const RefusedCommandLine& refused) {
  std::unique_ptr<WindowSystem> windows;
  try {
    if (!StandardErrorIsTerminal() && PersonCanSeeWindows()) windows = LoadWindowSystem(argc, argv);
  } catch (const RuntimeError&) {
    // Without a display, standard error is all there is.
  }
  return windows ? TellInWindow(*windows, refused, refused.Title) : Tell(refused.what());
}

int RunSwitches(int argc, char** argv) {
  try {
    const JoinedLine line = LineOf(argc, argv);
    const Job job = JobOf(line.Text);
    if (job != Job::Window && job != Job::Clipboard) return RunOnFiles(line);
  } catch (const RefusedCommandLine& refused) {
    return Refuse(argc, argv, refused);
  }
  return RunWithWindowSystem(argc, argv);
}

int RunOption(int argc, char** argv) {
  const String name = FromUtf8(argv[1]);
  const CommandWord* option = FindOption(name);
  if (option == nullptr) {
    std::cerr << "wordflurn: unknown option " << ToUtf8(name) << "; see wordflurn --help\n";
    return 1;
  }
  const std::vector<String> arguments = TextOf(argc, argv);
  if (option->With != Job::Option) return RunSwitches(argc, argv);
  if (option->Id == Word::Tool) return RunTool(arguments);
  if (option->Id == Word::Runs) return ListRuns();
  if (option->Id == Word::Undo) return UndoFromTerminal(std::span(arguments).subspan(1));
  const String text = option->Id == Word::Help ? CommandLineHelp() : String(kProduct) + u"\n";
  return std::cout << ToUtf8(text) << std::flush ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  PrepareProcess();
  const std::string_view first = argc > 1 ? argv[1] : "";
  try {
    if (first == kKeepClipboardOption) return RunAsClipboardKeeper(argc, argv);
    return first.starts_with("--") ? RunOption(argc, argv) : RunSwitches(argc, argv);
  } catch (const std::exception& error) {
    return Tell(error.what());
  }
}
