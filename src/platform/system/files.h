#pragma once
// The file system. Paths are text; a name that is not valid UTF-8 survives (each stray byte is
// U+DC80..U+DCFF). Failures are RuntimeError with the path and the cause.

#include <vector>

#include "text/text.h"

inline constexpr char16_t kPathSeparator = u'/';

// Anything but a folder.
bool FileExists(const String& path);
bool FolderExists(const String& path);
// Opens a regular file for reading and closes it again. RuntimeError when it can't be read.
void TestReadable(const String& path);

// This program may run the file.
bool IsExecutable(const String& path);
// No write permission bit is set. Setting it takes all of them; clearing it gives the owner's back.
bool IsReadOnly(const String& path);
void SetReadOnly(const String& path, bool readOnly);

// The content only, in constant memory; the target is created with mode 0600 or emptied. A file
// that is copied onto itself stays as it is.
void CopyFileContent(const String& from, const String& to);
// Returns when the content and the name of a file are on the disk.
void FlushFile(const String& path);
void DeleteFile(const String& path);
// Without an error when it is not there, or can't be.
void DeleteFileQuietly(const String& path) noexcept;
void MakeFolder(const String& path, unsigned mode);
// With missing parents, which get the same mode. A folder that is there already stays as it is.
void MakeFolders(const String& path, unsigned mode);
String CurrentFolder();
void SetCurrentFolder(const String& path);

// Names, sorted without regard to case, without "." and "..". Links count as what they lead to;
// files are regular ones.
std::vector<String> SubFolders(const String& path);
std::vector<String> FilesIn(const String& path);
// Mount points that a user may want to go to: the root, the home folder, mounted volumes.
std::vector<String> Volumes();
String HomeFolder();
// Empty when it is not set.
String Environment(const char* name);
// The folder of the running program.
String ProgramFolder();
bool CanWriteIn(const String& folder);

// The path of `name` in `folder`, with one separator between them.
String JoinPath(StringView folder, StringView name);
// Behind the last separator.
StringView FileNameOf(StringView path);
// In front of the last separator; "/" for a file in the root, "." where there is none.
String FolderOf(StringView path);
// The path from the root on, without "." and ".." in it.
String AbsolutePath(const String& path);
