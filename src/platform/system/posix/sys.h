#pragma once
// System calls on files: paths are text, an interrupted call is made again, and each call passes
// one hook, so that a test can let any of them fail or be the last one of its process.
//
// As in the system itself, -1 tells of a failure and errno of its cause.

#include <cerrno>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/types.h>

#include "text/text.h"

namespace sys {

// Called with the name of each call before it is made. Anything but 0 is the errno with which the
// call fails instead. Null but in tests.
extern std::function<int(const char* call)> OnCall;

// Close-on-exec is added to the flags. Never waits for the other end of a pipe.
int Open(const String& path, int flags, mode_t mode = 0);
// These two know their place themselves and leave that of the descriptor alone.
ssize_t Read(int descriptor, char* buffer, std::size_t size, std::uint64_t place);
// All of the bytes.
int Write(int descriptor, std::string_view bytes, std::uint64_t place);
int Truncate(int descriptor, off_t size);
int Sync(int descriptor);
// The descriptor is gone in any case.
int Close(int descriptor);
int ChangeOwner(int descriptor, uid_t owner, gid_t group);
int ChangeMode(int descriptor, mode_t mode);
int ChangeMode(const String& path, mode_t mode);
// The times of the last reading and the last change.
int SetTimes(int descriptor, const struct stat& times);
int Rename(const String& from, const String& to);
int Unlink(const String& path);
// A second name for a file; a link at either end is none to follow.
int Link(const String& path, const String& name);
// Flushes all of the file system that an open file lies on.
int SyncFileSystem(int descriptor);
int MakeFolder(const String& path, mode_t mode);
// Of an empty folder.
int RemoveFolder(const String& path);
int ChangeFolder(const String& path);
// Takes an exclusive lock, without waiting.
int Lock(int descriptor);
// One extended attribute; the whole set of names, each ended by NUL. -1 where there are none.
ssize_t GetAttribute(int descriptor, const std::string& name, std::string& value);
ssize_t ListAttributes(int descriptor, std::string& names);
int SetAttribute(int descriptor, const std::string& name, const std::string& value);
int RemoveAttribute(int descriptor, const std::string& name);

// These only look.
int Stat(const String& path, struct stat& status);
int StatLink(const String& path, struct stat& status);
// W_OK and the like, for the effective user.
int Access(const String& path, int mode);
int RealPath(const String& path, String& result);
int ReadLink(const String& path, String& result);

// Makes the entries of a folder (new names, renamed ones) permanent.
int SyncFolder(const String& folder);

// A RuntimeError "path: cause". 76 instead of 53 where even the folder is missing.
[[noreturn]] void Throw(const String& path, int error = errno);

// Passes a result through, and throws for -1.
template <class Result>
Result Check(Result result, const String& path) {
  if (result < 0) Throw(path);
  return result;
}

// RuntimeError 75 for anything but a regular file.
void CheckRegular(const struct stat& status, const String& path);
// Opens a regular file; one that is to be made with O_CREAT need not be there. Throws.
int OpenRegular(const String& path, int flags, mode_t mode = 0);

// Owns a descriptor.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int value) : value_(value) {}
  Descriptor(Descriptor&& other) noexcept : value_(other.Release()) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Descriptor() {
    if (value_ >= 0) Close(value_);
  }
  int Get() const { return value_; }
  int Release() {
    const int value = value_;
    value_ = -1;
    return value;
  }

 private:
  int value_ = -1;
};

// An open file that several objects use; it is closed when the last one lets it go.
using SharedDescriptor = std::shared_ptr<Descriptor>;
// Lets it go, and tells what only shows when a file is closed even if others go on using it.
int LetGo(SharedDescriptor& descriptor);

}  // namespace sys
