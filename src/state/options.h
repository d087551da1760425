#pragma once
// The program's lasting settings, as they stand in the options file.

#include "platform/window/rich_text_box.h"

struct Options {
  TextFont ViewFont{u"Terminal", 12, false};
  TextFont PrintFont{u"Times New Roman", 14, false};
  String StartupFolder;
  String DefaultHeaderFile;
  String DefaultFooterFile;
};

// Reads the nine lines. RuntimeError when the file can't be read, has too few lines or holds a size
// that is none.
Options ReadOptions(const String& path);
