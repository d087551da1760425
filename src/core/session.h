#pragma once
// The program apart from its window: the shared fields, the document, the tools and the custom
// tools. An unattended run has nothing else; the main window is added to it.

#include <functional>
#include <map>
#include <memory>

#include "custom/custom_tool_names.h"
#include "custom/custom_tool_runner.h"
#include "editor/document.h"
#include "platform/system/work_folder.h"
#include "state/options.h"
#include "tools/tool_context.h"

class Session : private DocumentHost {
 public:
  // Begins with an empty document, the options and the custom tools of `appFolder`. RuntimeError
  // when that folder can't be made or written.
  Session(WindowSystem& windows, const String& appFolder, const String& commandLine);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  // Work files go with it.
  ~Session() override;

  ToolContext Context();
  // Runs a custom tool by its number, 1 to kMostCustomTools; one that is not there does nothing.
  CustomToolResult RunCustomTool(int number);
  // The custom tools are these now; tells the window.
  void UseCustomTools(CustomToolList list);
  // RuntimeError where there is a custom tool file that can't be read.
  void TestCustomToolFile() const;
  // The number of the custom tool of this name, in any case; 0 where there is none.
  int CustomToolNumber(StringView name) const;
  // Puts the options' fonts and folders back after the text was replaced.
  void ApplyOptions() override;

  WindowSystem& Windows;
  const ::WorkFolder WorkFolder;
  SharedFields Fields;
  // Named on the command line behind the file that is opened.
  std::vector<String> NotOpened;

 private:
  std::unique_ptr<RichTextBox> richTextBox1_;
  std::unique_ptr<RichTextBox> richTextBox2_;
  std::unique_ptr<CommonDialog> commonDialog1_;

 public:
  // The editor, and a hidden control that carries the printing font.
  ::RichTextBox& RichTextBox1;
  ::RichTextBox& RichTextBox2;
  CommonDialog& CommonDialog1;
  ::Messages Messages;
  ToolState Tools;
  CustomToolRunner CustomTools;
  // By number, in proper case.
  std::map<int, String> CustomToolNames;
  ::Document Document;

  // For the window: another text stands in the editor; the document's file, format or state is
  // another; something the user should know that is not worth a window; the list of custom tools is
  // another.
  std::function<void()> OnStartAnew;
  std::function<void()> OnDocumentChanged;
  std::function<void(StringView)> OnTell;
  std::function<void()> OnCustomToolsChanged;

 private:
  void StartAnew() override;
  void DocumentChanged() override;
  void Tell(StringView message) override;
  void Use(const Options& options);
};
