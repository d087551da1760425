#pragma once
// The way to give a file new content where a rename would break something.

#include "platform/system/posix/sys.h"
#include "platform/system/safe_save.h"

// Whether an error makes new files impossible while the file itself may still be written.
bool IsRefusal(int error);

// Where copies go whose own folder refuses them; may be empty.
const String& SpareFolder();
// A file without a name for what concerns a file, beside it where that can be had. Throws.
sys::SharedDescriptor OpenNamelessFor(const String& path);

// Writes over an open file, after its old content has been kept in a copy, which goes when that is
// done. `status` is the file's. RuntimeError, and the file is as it was, or the text names the
// copy.
void RewriteInPlace(const sys::SharedDescriptor& file, const struct stat& status,
                    const String& path, const std::function<void(const ByteSink&)>& produce);
