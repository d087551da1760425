#pragma once
// A new file with a name that nobody can guess.

#include <sys/types.h>

#include "platform/system/posix/sys.h"

// Deleted when the object goes, unless it is left.
class ScratchFile {
 public:
  ScratchFile() = default;
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;
  ~ScratchFile();

  // Makes the file in a folder, its name `prefix` and 16 digits. -1 and errno on a failure.
  int Make(const String& folder, StringView prefix, mode_t mode);
  // The open file, for reading and writing.
  const sys::SharedDescriptor& File() const { return descriptor_; }
  int Get() const { return descriptor_->Get(); }
  const String& Path() const { return path_; }
  // What only shows when a file is closed, shows here; the file stays open.
  int Close() const {
    sys::SharedDescriptor last = descriptor_;
    return sys::LetGo(last);
  }
  // From now on the file stays.
  void Leave() { path_.clear(); }

 private:
  sys::SharedDescriptor descriptor_;
  String path_;
};

// A new file for this user alone, for reading and writing, without a name. Null and errno on a
// failure.
sys::SharedDescriptor OpenNameless(const String& folder);
