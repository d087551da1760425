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
  // Hands the open file, which can be read as well, to the caller; the name goes.
  int Release() { return descriptor_.Release(); }
  int Get() const { return descriptor_.Get(); }
  const String& Path() const { return path_; }
  int Close() { return sys::Close(descriptor_.Release()); }
  // From now on the file stays.
  void Leave() { path_.clear(); }

 private:
  sys::Descriptor descriptor_;
  String path_;
};
