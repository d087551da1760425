#pragma once
// Where the files of a batch come from: a list file, or a folder.

#include <span>
#include <vector>

#include "text/text.h"

struct FileList {
  // Absolute paths, each once, in the order of the list. Links are not followed.
  std::vector<String> Files;
  // As the list names them: what can't be opened as a file.
  std::vector<String> Missing;
};

// Reads a list file, a path a line; blank lines are passed over. A line stands for the file of
// exactly these bytes; where there is none, for the one without the blanks around it, or whose name
// these bytes are in Windows-1252. RuntimeError where the list can't be read.
FileList ReadListFile(const String& path);

// Writes a list file, in Windows-1252 where each line can only be read as the path that it stands
// for, else with the very bytes of the paths. RuntimeError, and the file is as it was, for a path
// with a line break in it as well.
void WriteListFile(const String& path, const std::vector<String>& files);

// The files of a folder that fit the first of the patterns, without hidden ones, in order of their
// names. RuntimeError where the folder can't be read.
std::vector<String> FilesToFlurn(const String& folder);

// The kinds of files that the user may choose from.
struct FilePattern {
  StringView Name;
  StringView Pattern;
};
std::span<const FilePattern> FilePatterns();
