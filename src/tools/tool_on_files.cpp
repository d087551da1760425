#include "tools/tool_on_files.h"

#include <iostream>
#include <unordered_set>

#include "editor/encryption_marker.h"
#include "platform/console/console_window_system.h"
#include "platform/system/byte_file.h"
#include "platform/system/files.h"
#include "platform/system/safe_save.h"
#include "platform/system/work_folder.h"
#include "state/data_files.h"
#include "text/runtime_error.h"
#include "tools/catalogue.h"
#include "tools/file_run.h"

namespace {

// Encrypted text could never be decrypted again.
void TestPlain(const String& file) {
  InputFile bytes(file);
  if (HoldsEncryptionMarker(bytes))
    throw RuntimeError(kEncryptedFile, ToUtf8(file) + ": the file is encrypted");
}

void TellLeftovers(const String& file) {
  for (const String& path : LeftoversBeside(file))
    std::cerr << "wordflurn: " << ToUtf8(path) << ": left by a save that was broken off\n";
}

void RunOnFile(ToolContext& context, const Tool& tool, const String& file) {
  TestPlain(file);
  FileRun run(file, context.Fields.WorkFolder);
  context.File = &run;
  tool.Run(context, SettingsInWindow(tool, context.Tools));
  // A tool that does nothing leaves nothing.
  if (!run.HasResult()) return;
  SafeSave(file, [&](const ByteSink& sink) { run.Result().ReadRest(sink); });
}

// The cause, with the file in front: a tool that can't take a text knows no name of it.
std::string Failure(const std::exception& error, const String& file) {
  const std::string cause = error.what();
  for (const String& name : {file, AbsolutePath(file)})
    if (cause.starts_with(ToUtf8(name) + ':')) return cause;
  return ToUtf8(file) + ": " + cause;
}

}  // namespace

int RunToolOnFiles(const String& toolName, std::span<const String> files) {
  const Tool* tool = FindTool(toolName);
  if (tool == nullptr) {
    std::cerr << "wordflurn: there is no tool named \"" << ToUtf8(toolName) << "\"\n";
    return 1;
  }
  const String appFolder = FindAppFolder();
  const WorkFolder workFolder(appFolder, IsTemporaryFile);
  SetSpareFolder(appFolder);
  ConsoleWindowSystem windows;
  SharedFields fields;
  SetDataPaths(fields, appFolder, workFolder.Path());
  Messages messages(windows);
  const auto editor = windows.CreateRichTextBox();
  ToolState tools(windows, messages);
  ToolContext context{fields, *editor, messages, windows, tools};
  int status = 0;
  std::unordered_set<String> folders;
  for (const String& file : files) {
    // It reads through the folder.
    if (folders.insert(FolderOf(file)).second) TellLeftovers(file);
    try {
      RunOnFile(context, *tool, file);
    } catch (const std::exception& error) {
      std::cerr << "wordflurn: " << Failure(error, file) << '\n';
      status = 2;
    }
  }
  DeleteTemporaryFiles(fields);
  return status;
}
