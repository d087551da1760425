#pragma once
// Writing over a user's file so that nothing is ever lost.

#include <functional>
#include <string_view>
#include <vector>

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
// folder behind the rename fails, or a file that is rewritten in place can't be given its setuid
// and setgid permission again, does the file hold the new content already.
//
// A file that is new is readable for nobody who can't read the file `model`, if one is named.
void SafeSave(const String& path, const std::function<void(const ByteSink&)>& produce,
              const String& model = {});

// The same for content that `write` puts into an open file, empty so far. Where the target has to
// be rewritten in place, that begins when `write` is done.
void SafeReplace(const String& path, const std::function<void(OutputFile)>& write,
                 const String& model = {});

// What saves that were killed have left beside a file: new content that never got its name, and
// copies of the file (in the spare folder, too). Those that hold nothing or what the file holds are
// removed; the others are returned, for a person to be told of. Those of running programs and of
// other users are passed over. Reads through the folder, so call it once for many files in one.
std::vector<String> LeftoversBeside(const String& path);

// Where copies are kept for files in folders that can't be written; the data folder of the program.
// For the copy of this library that the caller is linked with: the program's, which does all
// saving. The window module has a copy and a setting of its own, never set, so it must not save
// files.
void SetSpareFolder(const String& folder);
