#include "core/auto_run.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "core/command_line.h"
#include "custom/custom_tool_record.h"
#include "custom/streamed_run.h"
#include "platform/system/files.h"
#include "platform/system/safe_save.h"
#include "state/data_files.h"

namespace {

// Characters of a name in a message, and in a name that is made of it.
constexpr std::size_t kShown = 200;
constexpr std::size_t kInFileName = 40;

struct Task {
  String File;
  String Target;
  String ToolName;
  int ToolNumber = 0;  // 0: there is no such tool

  bool OverwritesItsFile() const {
    std::error_code ignored;
    return Target == File || std::filesystem::equivalent(ToUtf8(Target), ToUtf8(File), ignored);
  }
};

std::string Quoted(StringView name) { return '"' + ToUtf8(name.substr(0, kShown)) + '"'; }

// The path with ".html" in place of the ending of the file's name, or behind a name without one.
String AsHtmlFile(const String& path) {
  const StringView name = FileNameOf(path);
  const String folder = path.substr(0, path.size() - name.size());
  return folder + String(name.substr(0, name.rfind(u'.'))) + u".html";
}

// Where the result goes.
String TargetOf(const String& file, const SharedFields& fields, bool asHtml) {
  String path = asHtml ? AsHtmlFile(file) : file;
  const std::size_t folder = path.size() - FileNameOf(path).size();
  path.insert(folder, fields.AddPrefix);
  return fields.SaveToLocation.empty() ? path : JoinPath(fields.SaveToLocation, FileNameOf(path));
}

Task ReadTask(Session& session) {
  SharedFields& fields = session.Fields;
  const StringView line = fields.CommandLine;
  const String file = FileArgument(line);
  if (*FindSwitch(line, Word::Auto) < 2 || file.empty())
    throw RefusedCommandLine(u"Error", u"Invalid Command Line - you must put filename first");
  fields.NoHtmlHeaderFooter = HasSwitch(line, Word::NoHtmlHeaderFooter);
  fields.AddPrefix = SwitchValue(line, Word::AddPrefix);
  fields.SaveToLocation = SwitchValue(line, Word::SaveToLocation);
  Task task;
  task.File = AbsolutePath(file);
  task.Target = TargetOf(task.File, fields, HasSwitch(line, Word::SaveAsHtmlFile));
  task.ToolName = SwitchValue(line, Word::Auto);
  task.ToolNumber = session.CustomToolNumber(task.ToolName);
  return task;
}

// False where the tool has to run on the editor.
bool TryStreamed(Session& session, const Task& task) {
  CustomTool tool;
  try {
    tool = ReadCustomTool(session.Fields.CustomToolFile, task.ToolNumber);
  } catch (const RuntimeError&) {
    return false;
  }
  ToolContext context = session.Context();
  const bool done = RunStreamed(context, tool, task.File, task.Target);
  DeleteTemporaryFiles(session.Fields);
  return done;
}

// Opening an encrypted file makes it writable.
void RefuseEncrypted(const Session& session, const Task& task, bool isReadOnly) {
  if (!session.RichTextBox1.Locked) return;
  if (isReadOnly) SetReadOnly(task.File, true);
  throw RuntimeError(kEncryptedFile, ToUtf8(task.File) + ": the file is encrypted");
}

std::string NoSuchTool(const Session& session, const Task& task) {
  std::string message = "there is no custom tool named " + Quoted(task.ToolName);
  try {
    session.TestCustomToolFile();
  } catch (const RuntimeError& error) {
    message += std::string(": ") + error.what();
  }
  return message;
}

// Keeps the text of a file that a run which failed overwrites; where the copy is.
String KeepTextBefore(const Task& task) {
  String name = task.ToolName.substr(0, kInFileName);
  std::replace(name.begin(), name.end(), kPathSeparator, u'_');
  const String wanted = task.File + u".before-" + name;
  String copy = wanted;
  for (int number = 2; FileExists(copy) || FolderExists(copy); ++number)
    copy = wanted + u"-" + Str(number);
  CopyFileContent(task.File, copy);
  FlushFile(copy);
  return copy;
}

void AddNames(std::string& message, const std::vector<String>& names, const char* what) {
  if (names.empty()) return;
  for (const String& name : names) message += (&name == names.data() ? "; " : ", ") + Quoted(name);
  message += what;
}

// Runs the tool and returns what there is to tell before the result is saved; empty for nothing.
std::string RunTool(Session& session, const Task& task) {
  if (task.ToolNumber == 0) return NoSuchTool(session, task);
  const CustomToolResult result = session.RunCustomTool(task.ToolNumber);
  if (result.Whole()) return {};
  std::string message =
      ToUtf8(task.File) + ": not every step of " + Quoted(task.ToolName) + " could be done";
  AddNames(message, result.Done, " done");
  AddNames(message, result.NotDone, " not");
  if (!result.Cause.empty()) message += "; " + ToUtf8(result.Cause);
  if (task.OverwritesItsFile())
    message += "; the text from before is in " + ToUtf8(KeepTextBefore(task));
  return message;
}

// As it is told, but for a text that would be written over itself.
void Save(Session& session, const Task& task, std::string& message) {
  if (task.ToolNumber == 0 && task.OverwritesItsFile()) return;
  try {
    session.RichTextBox1.SaveFile(task.Target, session.Fields.DocumentFormat, task.File);
  } catch (const RuntimeError& error) {
    if (message.empty()) throw;
    throw RuntimeError(error.Code, message + "; not saved: " + error.what());
  }
  if (!message.empty()) message += "; saved as " + ToUtf8(task.Target);
}

}  // namespace

int RunAuto(Session& session) {
  const Task task = ReadTask(session);
  const bool isReadOnly = IsReadOnly(task.File);
  if (isReadOnly && task.OverwritesItsFile())
    throw RuntimeError(kPermissionDenied, ToUtf8(task.File) + ": the file is read-only");
  for (const String& path : LeftoversBeside(task.Target))
    std::cerr << "wordflurn: " << ToUtf8(path) << ": left by a save that was broken off\n";
  if (task.ToolNumber != 0 && TryStreamed(session, task)) return 0;
  session.Document.OpenNamed(task.File);
  RefuseEncrypted(session, task, isReadOnly);
  std::string message = RunTool(session, task);
  Save(session, task, message);
  if (message.empty()) return 0;
  std::cerr << "wordflurn: " << message << '\n';
  return 1;
}
