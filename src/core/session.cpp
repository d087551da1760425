#include "core/session.h"

#include "platform/system/files.h"
#include "state/data_files.h"

Session::Session(WindowSystem& windows, const String& appFolder, const String& commandLine)
    : Windows(windows),
      WorkFolder(appFolder, IsTemporaryFile),
      richTextBox1_(windows.CreateRichTextBox()),
      richTextBox2_(windows.CreateRichTextBox()),
      commonDialog1_(windows.CreateCommonDialog()),
      RichTextBox1(*richTextBox1_),
      RichTextBox2(*richTextBox2_),
      CommonDialog1(*commonDialog1_),
      Messages(windows),
      Tools(windows, Messages),
      CustomTools(windows),
      Document(Fields, RichTextBox1, CommonDialog1, Messages, *this) {
  SetDataPaths(Fields, appFolder, WorkFolder.Path());
  DeleteTemporaryFiles(Fields);
  Fields.CommandLine = commandLine;
  RichTextBox1.OnChange = [this] { Document.TextHasChanged(); };
  RichTextBox1.OnPaste = [this] { Document.CheckSetLock(); };
  UseCustomTools(ReadCustomToolNames(Fields.CustomToolFile));
  ApplyOptions();
}

Session::~Session() { DeleteTemporaryFiles(Fields); }

ToolContext Session::Context() { return {Fields, RichTextBox1, Messages, Windows, Tools}; }

void Session::UseCustomTools(CustomToolList list) {
  CustomToolNames = std::move(list.Names);
  Fields.CustomToolCount = list.Count;
  if (OnCustomToolsChanged) OnCustomToolsChanged();
}

void Session::TestCustomToolFile() const {
  const String& file = Fields.CustomToolFile;
  if (FileExists(file) || FolderExists(file)) ReadDataFile(file);
}

int Session::CustomToolNumber(StringView name) const {
  for (const auto& [number, stored] : CustomToolNames) {
    if (UCase(Trim(stored)) == UCase(name)) return number;
  }
  return 0;
}

CustomToolResult Session::RunCustomTool(int number) {
  if (!CustomToolNames.contains(number)) return {};
  ToolContext context = Context();
  return CustomTools.Run(context, number);
}

void Session::ApplyOptions() {
  Options options;
  try {
    options = ReadOptions(Fields.OptionsFile);
    if (!IsBlank(options.StartupFolder)) {
      const String here = CurrentFolder();
      SetCurrentFolder(options.StartupFolder);
      SetCurrentFolder(here);
      CommonDialog1.InitDir = Tools.HTML.CommonDialog1.InitDir = options.StartupFolder;
    }
    for (const String& file : {options.DefaultHeaderFile, options.DefaultFooterFile}) {
      if (!IsBlank(file)) TestReadable(file);
    }
  } catch (const std::exception&) {
    options = {};
  }
  Use(options);
}

void Session::Use(const Options& options) {
  RichTextBox1.Font = options.ViewFont;
  RichTextBox2.Font = options.PrintFont;
  Fields.DefaultHeaderFile = options.DefaultHeaderFile;
  Fields.DefaultFooterFile = options.DefaultFooterFile;
}

void Session::StartAnew() {
  if (OnStartAnew) OnStartAnew();
}

void Session::DocumentChanged() {
  if (OnDocumentChanged) OnDocumentChanged();
}

void Session::Tell(StringView message) {
  if (OnTell) OnTell(message);
}
