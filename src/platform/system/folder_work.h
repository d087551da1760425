#pragma once
// Folders that the program keeps in order by itself. A link stands for itself here, never for what
// it leads to. Failures are RuntimeError with the path and the cause.

#include <vector>

#include "text/text.h"

enum class EntryKind { None, File, Folder, Link, Other };

// What stands at a path; None where nothing does.
EntryKind KindOf(const String& path);
// The names in a folder: of every kind, hidden ones too, in no order, without "." and "..".
std::vector<String> EntriesIn(const String& folder);
// A file at the new place is replaced; a folder only while it is empty.
void RenameEntry(const String& from, const String& to);
// A folder and all that is in it, or a single entry. What links lead to stays.
void RemoveTree(const String& path);
void RemoveEmptyFolder(const String& path);
// Returns when the entries of a folder (new names, renamed ones) are on the disk.
void FlushFolder(const String& path);
