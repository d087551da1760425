#pragma once
// The names of files that are kept in the folder of a run.

#include "text/text.h"

// BARE for number 0, else NUMBER---BARE, cut to the length of a file name.
String NumberedName(int number, StringView bare);
// A path as it stands in a history.
String FullPath(const String& path);
