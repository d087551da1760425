#pragma once
// The system's dialogs for opening and saving a file.

#include "text/text.h"

class CommonDialog {
 public:
  enum Flag : int { kOverwritePrompt = 2, kHideReadOnly = 4 };

  virtual ~CommonDialog() = default;
  // Ask for a file; FileName and FileTitle then name it. RuntimeError 32755 on cancel, and nothing
  // has changed.
  virtual void ShowOpen() = 0;
  virtual void ShowSave() = 0;
  // ShowOpen; false when it was cancelled.
  bool AskForFile();

  String DialogTitle;
  // The path.
  String FileName;
  // The name without its folder, set by the dialogs alone: empty for a path from elsewhere.
  String FileTitle;
  // Pairs of description and patterns, all parted by "|"; patterns are parted by ";".
  String Filter;
  // The filter shown first, counted from 1.
  int FilterIndex = 1;
  // Where the dialog starts when no dialog has been used before. Saving starts where the file of
  // FileName is, opening goes there when all else fails.
  String InitDir;
  int Flags = 0;
};
