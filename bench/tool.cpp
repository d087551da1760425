// Runs one tool on a file the way a batch does: to be timed against other programs.
//
//   tool NAME IN OUT [POSITION | SEARCH REPLACE]
//
// POSITION is that of Add Trailing Carriage Returns, SEARCH and REPLACE are those of Search and
// Replace, with match case. Prints the seconds that it took.

#include <chrono>
#include <iostream>
#include <vector>

#include "platform/console/console_window_system.h"
#include "platform/system/memory.h"
#include "state/data_files.h"
#include "tools/catalogue.h"
#include "tools/file_run.h"

namespace {

void Run(const std::vector<String>& arguments) {
  ConsoleWindowSystem windows;
  Messages messages(windows);
  ToolState tools(windows, messages);
  SharedFields fields;
  SetDataPaths(fields, u".", u".");
  FileRun run(arguments[1], u".");
  run.SendTo(OutputFile(arguments[2]));
  if (arguments.size() == 4) tools.AddCarriageForm.Text1.Text = arguments[3];
  if (arguments.size() == 5) {
    tools.SearchReplaceForm.Text1.Text = arguments[3];
    tools.SearchReplaceForm.Text2.Text = arguments[4];
    tools.SearchReplaceForm.Check3.Value = 1;
  }
  const auto editor = windows.CreateRichTextBox();
  ToolContext context{fields, *editor, messages, windows, tools, &run};
  const Tool* tool = FindTool(arguments[0]);
  if (tool == nullptr) throw std::runtime_error("no such tool");
  tool->Run(context, SettingsInWindow(*tool, tools));
}

}  // namespace

int main(int argc, char** argv) {
  KeepFreedMemory();
  std::vector<String> arguments;
  for (int i = 1; i < argc; ++i) arguments.push_back(FromUtf8(argv[i]));
  if (arguments.size() < 3 || arguments.size() > 5) {
    std::cerr << "usage: tool NAME IN OUT [POSITION | SEARCH REPLACE]\n";
    return 2;
  }
  const auto start = std::chrono::steady_clock::now();
  try {
    Run(arguments);
  } catch (const std::exception& error) {
    std::cerr << "tool: " << error.what() << '\n';
    return 1;
  }
  const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
  std::cout << time.count() << " s\n";
}
