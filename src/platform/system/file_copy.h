#pragma once
// Copies that keep what a file has besides its content, and what tells one file from another.
// Failures are RuntimeError with the path and the cause.

#include <cstdint>
#include <optional>

#include "text/text.h"

// Copies a file's content, mode, times and, as far as the system allows, owner and extended
// attributes to a new name. False when something stands there already, whatever it is. Nothing is
// left there after a failure. The copy is not yet on the disk when this returns.
bool CopyToNewName(const String& from, const String& to);
// The same over whatever stands at `to`, at once whole and on the disk.
void CopyOver(const String& from, const String& to);
// Gives a file the times of another one, where the system allows that.
void CarryTimes(const String& from, const String& to);
// Returns when a file's content is on the disk; its name is the folder's.
void FlushContent(const String& path);

// The path of the file itself, behind all links; it need not be there.
String ResolvedPath(const String& path);
// The same text for every name of one file: links, hard links and detours. Of a file that is not
// there, too.
String FileKey(const String& path);

struct FileStamp {
  std::uint64_t Size = 0;
  // Of the last change of the content, in nanoseconds.
  std::int64_t Time = 0;
  bool operator==(const FileStamp&) const = default;
};
// Of the regular file behind a path; none where there is none.
std::optional<FileStamp> StampOf(const String& path);
