#include "tools/run_program.h"

#include "platform/system/files.h"
#include "platform/system/process.h"
#include "text/runtime_error.h"
#include "text/scoped_value.h"
#include "tools/selection.h"
#include "tools/tool_frame.h"

namespace {

constexpr int kPauseMilliseconds = 20;
constexpr int kEditorSeconds = 30;
constexpr int kFileSeconds = 20;

constexpr StringView kNoAccess =
    u"Error: The specified program in the Run Program tool cannot be accessed.";
constexpr StringView kNotComplete =
    u"Error: The specified program in the Run Program tool did not complete its task within 30 "
    u"seconds.  Processing will continue using any other tools.";
constexpr StringView kUnknownError = u"Error: An unknown error occurred with the Run Program tool.";

struct Command {
  const String& Program;
  const String& Arguments;
};

// The file is the first argument of the program.
Process Start(const Command& command, const String& file) {
  std::vector<String> arguments{file};
  for (String& argument : SplitArguments(command.Arguments))
    arguments.push_back(std::move(argument));
  return Process(AbsolutePath(command.Program), arguments);
}

// False when the program has not ended with 0 within the limit; one that ends with another number
// never does.
bool WaitFor(Process process, int seconds, WindowSystem& windows) {
  const long long end = windows.Milliseconds() + seconds * 1000LL;
  while (true) {
    const int code = process.ExitCode();
    windows.DoEvents();
    if (windows.Milliseconds() >= end) return false;
    if (code < 1) return true;
    windows.Wait(kPauseMilliseconds);
  }
}

void RunOnEditor(ToolContext& context, const Command& command) {
  try {
    TestReadable(command.Program);
  } catch (const RuntimeError&) {
    return context.Messages.Notice(kNoAccess);
  }
  SharedFields& fields = context.Fields;
  RichTextBox& editor = context.RichTextBox1;
  // Nobody types into the selection while it stands alone.
  const ScopedValue locked(editor.Locked, true);
  try {
    context.Windows.DoEvents();
    const auto before = editor.SharedText();
    ToolSelection selection;
    bool keepLineEnd = false;
    selection.SelectedTextBeforeTool(context, keepLineEnd);
    // As a file of the document's own kind, which is what the program expects. A new file would be
    // for others to read.
    TextFormat format = fields.DocumentFormat;
    format.BareCrs.clear();
    WriteWorkFile(fields.TempFile1, {});
    editor.SaveFile(fields.TempFile1, format);
    fields.ToolRan = true;
    context.Windows.DoEvents();
    if (!WaitFor(Start(command, fields.TempFile1), kEditorSeconds, context.Windows))
      context.Messages.Notice(kNotComplete);
    editor.LoadFile(fields.TempFile1);
    selection.SelectedTextAfterTool(context);
    KeepForUndo(fields, *before);
  } catch (const RuntimeError&) {
    context.Messages.Notice(kUnknownError);
  }
}

// A failure in here is one of the program's file, and told as that.
template <typename Action>
auto CheckingProgram(SharedFields& fields, Action action) {
  fields.CheckingRunProgram = true;
  try {
    auto result = action();
    fields.CheckingRunProgram = false;
    return result;
  } catch (const RuntimeError& error) {
    throw RuntimeError(kFileNotFound, error.what());
  }
}

void RunOnFile(ToolContext& context, const Command& command) {
  SharedFields& fields = context.Fields;
  CheckingProgram(fields, [&] { return TestReadable(command.Program), true; });
  const String source = fields.InputFileNum->Path();
  fields.InputFileNum.reset();
  CopyFileContent(source, fields.TempFile2);
  context.Windows.DoEvents();
  Process process = CheckingProgram(fields, [&] { return Start(command, fields.TempFile2); });
  if (!WaitFor(std::move(process), kFileSeconds, context.Windows)) {
    throw RuntimeError(kProgramDidNotReturn,
                       ToUtf8(command.Program) + ": the program has not returned");
  }
  CopyFileContent(fields.TempFile2, fields.TempFile1);
  fields.OutputFormat.reset();
  context.Windows.DoEvents();
}

}  // namespace

void RunProgram(ToolContext& context, const String& program, String& arguments) {
  const StringView trimmed = Trim(arguments);
  arguments = trimmed.empty() ? String() : u" " + String(trimmed);
  const Command command{program, arguments};
  if (context.Fields.BatchMode)
    RunOnFile(context, command);
  else
    RunOnEditor(context, command);
}

void RunProgramAsSet(ToolContext& context) {
  const RunProgramSettings& settings = context.Tools.RunProgramSettings;
  String arguments = settings.Text2.Text;
  RunProgram(context, settings.Text1.Text, arguments);
}
