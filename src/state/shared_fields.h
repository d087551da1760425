#pragma once
// The state that all parts of the program share. One instance, owned by the application object.

#include <memory>
#include <optional>

#include "platform/system/text_file.h"

struct SharedFields {
  // Where the program's data lives.
  String AppFolder;
  // Where this process keeps its temporary files.
  String WorkFolder;
  String TempFile1;  // the text before the last tool
  String TempFile2;
  String TempFile3;
  String TempFile4;
  String TempFile5;
  String HtmlTempFile;
  String OptionsFile;
  String CustomToolFile;

  String CommandLine;

  // The document.
  bool TextChanged = false;  // since the last open or new
  bool FileSaved = false;    // since the last change
  bool HasFileName = false;
  bool ReadOnlyFile = false;
  TextFormat DocumentFormat;  // how the next save writes it

  // Tools.
  bool ToolRan = false;  // a tool has run on the editor's text
  bool ToolBusy = false;
  bool WorkingShown = false;
  bool ToolUndoPending = false;
  bool UndoBroken = false;
  bool ToolOnSelection = false;
  bool SelectionCrLfFlag = false;
  bool SelectionUsedUp = false;  // the last tool on a selection has left nothing of it
  std::size_t ToolSelStart = 0;
  std::size_t ToolSelEnd = 0;

  // Options.
  String DefaultHeaderFile;
  String DefaultFooterFile;

  int CustomToolCount = 0;  // number of the last custom tool in the file, 0 to 8

  // Command line.
  String SaveToLocation;
  String AddPrefix;
  bool NoHtmlHeaderFooter = false;
};
