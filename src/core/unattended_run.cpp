#include "core/unattended_run.h"

#include <iostream>

#include "custom/custom_tool_record.h"
#include "custom/streamed_run.h"
#include "platform/system/files.h"
#include "state/data_files.h"
#include "text/runtime_error.h"
#include "tools/catalogue.h"

namespace {

constexpr StringView kError = u"Error";
// Characters of a name in a message.
constexpr std::size_t kShown = 200;

// The cleaned text is left on the clipboard. The exit status.
int CleanClipboard(Session& session) {
  ::Clipboard& clipboard = session.Windows.Clipboard();
  // Whatever else is on the clipboard stays there.
  if (!clipboard.HasText()) return 0;
  session.RichTextBox1.SetText(clipboard.GetText());
  session.Document.CheckSetLock();
  if (session.RichTextBox1.Locked)
    throw RuntimeError(kEncryptedFile, "The text on the clipboard is encrypted");
  ToolContext context = session.Context();
  const bool standard = HasSwitch(session.Fields.CommandLine, Word::EmailStd);
  FindTool(standard ? kEmailStandard : kEmailPoem)->Run(context, {});
  if (session.Messages.NoticeCount() > 0) return 1;
  clipboard.SetText(session.RichTextBox1.Text());
  session.Windows.DoEvents();
  return 0;
}

// 0 when no tool has this name.
int FindCustomTool(const Session& session, StringView name) {
  for (const auto& [number, stored] : session.CustomToolNames) {
    if (UCase(Trim(stored)) == UCase(name)) return number;
  }
  return 0;
}

// The path with another ending of the file's name, where that has one.
String AsHtmlFile(const String& path) {
  const String folder = path.substr(0, path.size() - FileNameOf(path).size());
  const StringView name = FileNameOf(path);
  const std::size_t dot = name.rfind(u'.');
  return dot == StringView::npos ? path : folder + String(name.substr(0, dot)) + u".html";
}

// Where the result goes.
String TargetOf(const String& file, const SharedFields& fields, bool asHtml) {
  String path = asHtml ? AsHtmlFile(file) : file;
  const std::size_t folder = path.size() - FileNameOf(path).size();
  path.insert(folder, fields.AddPrefix);
  return fields.SaveToLocation.empty() ? path : JoinPath(fields.SaveToLocation, FileNameOf(path));
}

// False where the tool has to run on the editor.
bool TryStreamed(Session& session, int number, const String& file, const String& target) {
  CustomTool tool;
  try {
    tool = ReadRecord(ReadDataFile(session.Fields.CustomToolFile), number);
  } catch (const RuntimeError&) {
    return false;
  }
  ToolContext context = session.Context();
  const bool done = RunStreamed(context, tool, file, target);
  DeleteTemporaryFiles(session.Fields);
  return done;
}

int RunOnFile(Session& session) {
  SharedFields& fields = session.Fields;
  const StringView line = fields.CommandLine;
  const String named = FileArgument(line);
  if (*FindSwitch(line, Word::Auto) < 2 || named.empty())
    throw RefusedCommandLine(kError, u"Invalid Command Line - you must put filename first");
  fields.NoHtmlHeaderFooter = HasSwitch(line, Word::NoHtmlHeaderFooter);
  fields.AddPrefix = SwitchValue(line, Word::AddPrefix);
  fields.SaveToLocation = SwitchValue(line, Word::SaveToLocation);
  const String name = SwitchValue(line, Word::Auto);
  const String file = AbsolutePath(named);
  const String target = TargetOf(file, fields, HasSwitch(line, Word::SaveAsHtmlFile));
  const bool isReadOnly = IsReadOnly(file);
  if (isReadOnly && target == file)
    throw RuntimeError(kPermissionDenied, ToUtf8(file) + ": the file is read-only");
  const int number = FindCustomTool(session, name);
  if (number != 0 && TryStreamed(session, number, file, target)) return 0;
  session.Document.OpenNamed(file);
  if (session.RichTextBox1.Locked) {
    // Opening an encrypted file makes it writable.
    if (isReadOnly) SetReadOnly(file, true);
    throw RuntimeError(kEncryptedFile, ToUtf8(file) + ": the file is encrypted");
  }
  const std::string shownName = '"' + ToUtf8(name.substr(0, kShown)) + '"';
  bool done = false;
  if (number == 0) {
    std::cerr << "wordflurn: there is no custom tool named " << shownName << '\n';
  } else {
    const CustomToolResult result = session.RunCustomTool(number);
    done = result.Whole();
    if (!done) {
      std::cerr << "wordflurn: " << ToUtf8(file) << ": not every step of " << shownName
                << " could be done" << (result.Cause.empty() ? "" : ": ") << ToUtf8(result.Cause)
                << '\n';
    }
  }
  session.RichTextBox1.SaveFile(target, fields.DocumentFormat);
  fields.FileSaved = true;
  DeleteTemporaryFiles(fields);
  return done ? 0 : 1;
}

// Multiple File Flurn.
int RunBatch(Session&) {
  throw RefusedCommandLine(kError,
                           u"This version of WordFlurn cannot run a Multiple File Flurn yet.");
}

}  // namespace

int RunUnattended(Session& session) {
  const StringView line = session.Fields.CommandLine;
  const Job job = JobOf(line);
  if (job == Job::Clipboard) return CleanClipboard(session);
  TestCombinations(line);
  return job == Job::Batch ? RunBatch(session) : RunOnFile(session);
}
