#include "core/auto_batch.h"

#include <algorithm>
#include <iostream>

#include "batch/auto_convert.h"
#include "batch/list_file.h"
#include "batch/terminal_progress.h"
#include "batch/undo_on_terminal.h"
#include "platform/system/files.h"
#include "platform/system/safe_save.h"
#include "platform/system/terminal.h"
#include "state/data_files.h"

namespace {

constexpr StringView kError = u"Error";
constexpr StringView kRunName = u"Command Line Operation";

[[noreturn]] void Refuse(StringView text, StringView title = {}) {
  throw RefusedCommandLine(title, text);
}

FileList FilesOfFolder(const String& folder) {
  try {
    return {FilesToFlurn(folder), {}};
  } catch (const RuntimeError&) {
    Refuse(u"The folder you specified to use all files in does not exist or cannot be accessed.",
           kError);
  }
}

FileList FilesOf(StringView line) {
  // A list beside the folder is not looked at.
  if (HasSwitch(line, Word::UseAll)) return FilesOfFolder(SwitchValue(line, Word::UseAll));
  try {
    return ReadListFile(FileArgument(line));
  } catch (const RuntimeError&) {
    Refuse(u"The file containing the files to flurn (.WFF) does not exist or cannot be opened.");
  }
}

void TestWritable(const String& folder) {
  if (folder.empty() || (FolderExists(folder) && CanWriteIn(folder))) return;
  Refuse(u"The folder " + folder + u" does not exist or cannot be written.", kError);
}

BatchOrder ReadOrder(Session& session, const JoinedLine& given) {
  const StringView line = given.Text;
  session.Fields.NoHtmlHeaderFooter = HasSwitch(line, Word::NoHtmlHeaderFooter);
  BatchOrder order;
  order.SuperFast = true;
  order.Name = kRunName;
  order.AnyText = std::count(given.Options.begin(), given.Options.end(), Word::AnyText) > 0;
  order.SaveToLocation = SwitchValue(line, Word::SaveToLocation);
  order.AddPrefix = SwitchValue(line, Word::AddPrefix);
  if (order.AddPrefix.find(kPathSeparator) != String::npos)
    Refuse(u"A prefix cannot hold a \"/\".", kError);
  const int number = session.CustomToolNumber(SwitchValue(line, Word::Auto));
  if (number == 0) {
    session.TestCustomToolFile();
    Refuse(
        u"The tool you specified with the /AUTO: switch does not exist. Check to make sure that "
        u"it is spelled exactly as listed on the Custom Tools menu.");
  }
  order.Passes[0].Tool = String(kCustomToolPrefix) + session.CustomToolNames.at(number);
  if (!order.SaveToLocation.empty()) order.SaveToLocation = AbsolutePath(order.SaveToLocation);
  TestWritable(order.SaveToLocation);
  return order;
}

int StatusOf(BatchEnd end, bool anyFailed) {
  if (end == BatchEnd::NotBegun || end == BatchEnd::Aborted) return 1;
  return end != BatchEnd::Done || anyFailed ? 2 : 0;
}

}  // namespace

int RunBatch(Session& session, const JoinedLine& line) {
  BatchOrder order = ReadOrder(session, line);
  FileList list = FilesOf(line.Text);
  for (const String& missing : list.Missing)
    std::cerr << "wordflurn: " << ToUtf8(missing) << ": could not be opened\n";
  if (list.Files.empty()) Refuse(u"There are no files to flurn.", kError);
  order.Files = std::move(list.Files);

  BatchWindows windows(session.Windows, session.Messages, session.Fields.AppFolder,
                       LockOf(session.WorkFolder));
  BatchTools tools{session.Context(), session.CustomTools, session.CustomToolNames, windows,
                   session.WorkFolder};
  TerminalProgress progress(std::cerr, StandardErrorIsTerminal());
  const BatchEnd end = AUTOConvert(tools, order, progress);
  return StatusOf(end, windows.State.FailedFileCount() > 0 || !list.Missing.empty());
}

int ListRuns() {
  const String appFolder = FindAppFolder();
  const WorkFolder folder(appFolder, IsTemporaryFile);
  return ListRunsOnTerminal(appFolder, LockOf(folder), std::cout, std::cerr);
}

int UndoFromTerminal(std::span<const String> arguments) {
  const String appFolder = FindAppFolder();
  SetSpareFolder(appFolder);
  const WorkFolder folder(appFolder, IsTemporaryFile);
  return UndoOnTerminal(appFolder, LockOf(folder), arguments, std::cout, std::cerr);
}
