#pragma once
// A new file with a name that nobody can guess.

#include <optional>
#include <sys/types.h>

#include "platform/system/posix/sys.h"
#include "platform/system/signals.h"

// Deleted when the object goes or a signal ends the program, unless it is left. Locked as long as
// the object lives, by which other processes know that it is in use.
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
  void Leave() { removed_.reset(); }

 private:
  sys::SharedDescriptor descriptor_;
  String path_;
  // There as long as the file has to go.
  std::optional<RemovedOnSignal> removed_;
};

// In front of the digits: of new content, and of the copies of a file that is rewritten in place.
inline constexpr StringView kScratchPrefix = u".wordflurn-";
String CopyPrefix(const String& path);
// Of new content that can be made again.
inline constexpr StringView kGroupPrefix = u".wordflurn-group-";
inline constexpr std::size_t kScratchDigits = 16;

// A new file for this user alone, for reading and writing, without a name. Null and errno on a
// failure.
sys::SharedDescriptor OpenNameless(const String& folder);
