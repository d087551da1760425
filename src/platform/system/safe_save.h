#pragma once
// Writing over a user's file so that nothing is ever lost.

#include <functional>
#include <string_view>

#include "platform/system/byte_file.h"

// Hands bytes to the new content, any number of times. Each call is a write, so hand over blocks.
using ByteSink = std::function<void(std::string_view bytes)>;

// Replaces the content of a file by what `produce` hands over, or makes the file.
//
// The new content goes to a temporary file beside the target, is flushed to the disk and renamed
// over the target; owner, mode and extended attributes stay, a symbolic link stays a link. Where a
// rename would break something (several hard links, a folder that can't be written, an owner that
// can't be kept) the old content is kept in a copy, beside the target or in `spareFolder`, and the
// file is rewritten in place; the copy goes when that is done.
//
// RuntimeError when it fails, or whatever `produce` throws: the file then holds what it held, or,
// if even putting that back failed, the error's text names the copy. Only where the flush of the
// folder behind the rename fails does the file hold the new content already.
void SafeSave(const String& path, const std::function<void(const ByteSink&)>& produce);

// The same for content that `write` puts into an open file, empty so far. Where the target has to
// be rewritten in place, that begins when `write` is done.
void SafeReplace(const String& path, const std::function<void(OutputFile)>& write);

// The same by its path. False, and `write`
// was not called, where the file can't be replaced in one step; SafeSave then rewrites it in place.
bool SafeReplace(const String& path, const std::function<void(const String& scratch)>& write);

// Where copies are kept for files in folders that can't be written; the data folder of the program.
// For the copy of this library that the caller is linked with: the program's, which does all
// saving. The window module has a copy and a setting of its own, never set, so it must not save
// files.
void SetSpareFolder(const String& folder);
