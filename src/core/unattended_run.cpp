#include "core/unattended_run.h"

#include <iostream>

#include "core/change_case.h"
#include "core/command_line.h"
#include "custom/custom_tool_record.h"
#include "custom/streamed_run.h"
#include "platform/system/files.h"
#include "state/data_files.h"
#include "text/runtime_error.h"
#include "tools/character_repair.h"

namespace {

constexpr StringView kError = u"Error";
constexpr StringView kProduct = u"WordFlurn 2.0";
// Characters of a name in a message.
constexpr std::size_t kShown = 200;

// The cleaned text is left on the clipboard. The exit status.
int CleanClipboard(ChangeCase& app, void (*clean)(ToolContext&)) {
  app.Caption = String(kProduct);
  app.Fields.TextChanged = app.Fields.FileSaved = app.Fields.HasFileName = false;
  ToolContext context = app.Context();
  // Whatever else is on the clipboard stays there.
  if (!context.Windows.Clipboard().HasText()) return 0;
  app.Edit.PasteText();
  if (app.RichTextBox1.Locked)
    throw RuntimeError(kEncryptedFile, "The text on the clipboard is encrypted");
  context.Windows.DoEvents();
  clean(context);
  context.Windows.DoEvents();
  app.Edit.SelectAll();
  app.Edit.CopyText();
  context.Windows.DoEvents();
  return 0;
}

// 0 when no tool has this name.
int FindCustomTool(const ChangeCase& app, StringView name) {
  for (const auto& [number, stored] : app.CustomToolNames) {
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
bool TryStreamed(ChangeCase& app, int number, const String& file, const String& target) {
  CustomTool tool;
  try {
    ReadRecord(ReadDataFile(app.Fields.CustomToolFile), number, tool);
  } catch (const RuntimeError&) {
    return false;
  }
  ToolContext context = app.Context();
  const bool done = RunStreamed(context, tool, file, target);
  DeleteTemporaryFiles(app.Fields);
  return done;
}

int RunOnFile(ChangeCase& app, std::size_t autoPlace) {
  SharedFields& fields = app.Fields;
  const StringView line = fields.CommandLine;
  const String named = FileArgument(line);
  if (autoPlace < 2 || named.empty()) {
    throw RefusedCommandLine{String(kError), u"Invalid Command Line - you must put filename first"};
  }
  fields.NoHtmlHeaderFooter = HasSwitch(line, u"/NOHTMLHEADERFOOTER");
  fields.AddPrefix = SwitchWord(line, u"/ADDPREFIX:");
  fields.SaveToLocation = SwitchValue(line, u"/SAVETOLOCATION:");
  const String name = SwitchValue(line, u"/AUTO:");
  const String file = AbsolutePath(named);
  const String target = TargetOf(file, fields, HasSwitch(line, u"/SAVEASHTMLFILE"));
  const bool isReadOnly = IsReadOnly(file);
  if (isReadOnly && target == file)
    throw RuntimeError(kPermissionDenied, ToUtf8(file) + ": the file is read-only");
  const int number = FindCustomTool(app, name);
  if (number != 0 && TryStreamed(app, number, file, target)) return 0;
  app.Document.OpenNamed(file);
  if (app.RichTextBox1.Locked) {
    // Opening an encrypted file makes it writable.
    if (isReadOnly) SetReadOnly(file, true);
    throw RuntimeError(kEncryptedFile, ToUtf8(file) + ": the file is encrypted");
  }
  const std::string shownName = '"' + ToUtf8(name.substr(0, kShown)) + '"';
  const int notices = app.Messages.NoticeCount();
  bool done = false;
  if (number == 0) {
    std::cerr << "wordflurn: there is no custom tool named " << shownName << '\n';
  } else {
    done = app.RunCustomTool(number) && app.Messages.NoticeCount() == notices;
    if (!done)
      std::cerr << "wordflurn: " << ToUtf8(file) << ": not every step of " << shownName
                << " could be done\n";
  }
  app.RichTextBox1.SaveFile(target, fields.DocumentFormat);
  fields.FileSaved = true;
  DeleteTemporaryFiles(fields);
  return done ? 0 : 1;
}

}  // namespace

bool WantsNoWindow(StringView commandLine) {
  if (HasSwitch(commandLine, u"/EMAILSTD") || HasSwitch(commandLine, u"/EMAILPOEM")) return false;
  return HasSwitch(commandLine, u"/AUTO:") || HasSwitch(commandLine, u"/MFF");
}

std::optional<int> RunUnattended(ChangeCase& app) {
  const StringView line = app.Fields.CommandLine;
  if (HasSwitch(line, u"/EMAILSTD")) return CleanClipboard(app, EmailCleanupFromMenu);
  if (HasSwitch(line, u"/EMAILPOEM")) return CleanClipboard(app, EmailCleanupPoemFromMenu);
  if (HasSwitch(line, u"/MFF")) {
    throw RefusedCommandLine{String(kError),
                             u"This version of WordFlurn cannot run a Multiple File Flurn yet."};
  }
  const auto autoPlace = FindSwitch(line, u"/AUTO:");
  if (!autoPlace) return std::nullopt;
  try {
    return RunOnFile(app, *autoPlace);
  } catch (...) {
    DeleteTemporaryFiles(app.Fields);
    throw;
  }
}
