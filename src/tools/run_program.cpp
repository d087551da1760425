#include "tools/run_program.h"

#include "platform/system/files.h"
#include "platform/system/folder_work.h"
#include "platform/system/process.h"
#include "text/runtime_error.h"
#include "text/scoped_value.h"
#include "tools/file_run.h"
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

// The file is the first argument of the program.
Process Start(const RunSettings& command, const String& file) {
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

// A program may have put a link to another file in the place of the one that it was given.
void TestOwnFile(const String& path) {
  if (KindOf(path) == EntryKind::Link)
    throw RuntimeError(kPathFileAccess, ToUtf8(path) + ": the program has left a link there");
}

void RunOnEditor(ToolContext& context, const RunSettings& command) {
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
    TestOwnFile(fields.TempFile1);
    editor.LoadFile(fields.TempFile1);
    selection.SelectedTextAfterTool(context);
    KeepForUndo(fields, *before);
  } catch (const RuntimeError&) {
    context.Messages.Notice(kUnknownError);
  }
}

// A failure in here is one of the program's file, and told as that.
template <typename Action>
auto CheckingProgram(FileRun& run, Action action) {
  run.CheckingRunProgram = true;
  try {
    auto result = action();
    run.CheckingRunProgram = false;
    return result;
  } catch (const RuntimeError& error) {
    throw RuntimeError(kFileNotFound, error.what());
  }
}

// A file that the program can be given by name, with the input in it; away when the object goes.
class NamedCopy {
 public:
  NamedCopy(const String& path, InputFile content) : path_(path) {
    OutputFile file(path);
    content.ReadRest([&file](std::string_view bytes) { file.Write(bytes); });
    file.Close();
  }
  NamedCopy(const NamedCopy&) = delete;
  NamedCopy& operator=(const NamedCopy&) = delete;
  ~NamedCopy() { DeleteFileQuietly(path_); }

  const String& Path() const { return path_; }

 private:
  String path_;
};

void RunOnFile(ToolContext& context, const RunSettings& command) {
  FileRun& run = *context.File;
  CheckingProgram(run, [&] { return TestReadable(command.Program), true; });
  const NamedCopy copy(context.Fields.TempFile2, run.Source());
  context.Windows.DoEvents();
  Process process = CheckingProgram(run, [&] { return Start(command, copy.Path()); });
  if (!WaitFor(std::move(process), kFileSeconds, context.Windows)) {
    throw RuntimeError(kProgramDidNotReturn,
                       ToUtf8(command.Program) + ": the program has not returned");
  }
  TestOwnFile(copy.Path());
  run.Take(InputFile(copy.Path()));
  context.Windows.DoEvents();
}

}  // namespace

void RunProgram(ToolContext& context, const RunSettings& settings) {
  if (context.File != nullptr)
    RunOnFile(context, settings);
  else
    RunOnEditor(context, settings);
}
