#include "platform/system/posix/sys.h"

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "platform/system/files.h"
#include "text/runtime_error.h"

namespace sys {

std::function<int(const char* call)> OnCall;

namespace {

// Makes a call past the hook, until it is not interrupted.
template <class Function>
auto Call(const char* name, Function function) {
  for (;;) {
    decltype(function()) result = -1;
    if (const int error = OnCall ? OnCall(name) : 0)
      errno = error;
    else
      result = function();
    if (result != -1 || errno != EINTR) return result;
  }
}

// A call on a path. A NUL would cut the path short, and lead to another file.
template <class Function>
int CallOn(const char* name, const String& path, Function function) {
  const std::string bytes = ToUtf8(path);
  if (bytes.find('\0') != std::string::npos) {
    errno = EINVAL;
    return -1;
  }
  return Call(name, [&] { return function(bytes.c_str()); });
}

// Reads a value of unknown size; another process may let it grow between the two calls.
template <class Function>
ssize_t ReadGrowing(const char* name, std::string& value, Function function) {
  for (;;) {
    const ssize_t size = Call(name, [&] { return function(nullptr, 0); });
    if (size < 0) return -1;
    value.resize(static_cast<std::size_t>(size));
    if (size == 0) return 0;
    const ssize_t got = Call(name, [&] { return function(value.data(), value.size()); });
    if (got < 0 && errno == ERANGE) continue;
    if (got >= 0) value.resize(static_cast<std::size_t>(got));
    return got;
  }
}

}  // namespace

int Open(const String& path, int flags, mode_t mode) {
  return CallOn("open", path, [&](const char* bytes) {
    return open(bytes, flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode);
  });
}

ssize_t Read(int descriptor, char* buffer, std::size_t size, std::uint64_t place) {
  return Call("read", [&] { return pread(descriptor, buffer, size, static_cast<off_t>(place)); });
}

int Write(int descriptor, std::string_view bytes, std::uint64_t place) {
  while (!bytes.empty()) {
    const ssize_t written = Call("write", [&] {
      return pwrite(descriptor, bytes.data(), bytes.size(), static_cast<off_t>(place));
    });
    if (written == 0) errno = ENOSPC;
    if (written <= 0) return -1;
    bytes.remove_prefix(static_cast<std::size_t>(written));
    place += static_cast<std::uint64_t>(written);
  }
  return 0;
}

int Truncate(int descriptor, off_t size) {
  return Call("ftruncate", [&] { return ftruncate(descriptor, size); });
}

int Sync(int descriptor) {
  return Call("fsync", [&] { return fsync(descriptor); });
}

int Close(int descriptor) {
  const int error = OnCall ? OnCall("close") : 0;
  const int result = close(descriptor);
  if (error) errno = error;
  // After an interruption the descriptor is closed all the same.
  return (error || result < 0) && errno != EINTR ? -1 : 0;
}

int LetGo(SharedDescriptor& descriptor) {
  const SharedDescriptor own = std::move(descriptor);
  if (own.use_count() == 1) return Close(own->Release());
  // Closing a second number of the same open file brings its late errors to light as well.
  const int second = Call("dup", [&] { return fcntl(own->Get(), F_DUPFD_CLOEXEC, 0); });
  return second < 0 ? -1 : Close(second);
}

int ChangeOwner(int descriptor, uid_t owner, gid_t group) {
  return Call("fchown", [&] { return fchown(descriptor, owner, group); });
}

int ChangeMode(int descriptor, mode_t mode) {
  return Call("fchmod", [&] { return fchmod(descriptor, mode); });
}

int ChangeMode(const String& path, mode_t mode) {
  return CallOn("chmod", path, [&](const char* bytes) { return chmod(bytes, mode); });
}

int SetTimes(int descriptor, const struct stat& times) {
  const timespec both[]{times.st_atim, times.st_mtim};
  return Call("futimens", [&] { return futimens(descriptor, both); });
}

int Rename(const String& from, const String& to) {
  const std::string target = ToUtf8(to);
  return CallOn("rename", from, [&](const char* bytes) { return rename(bytes, target.c_str()); });
}

int Unlink(const String& path) { return CallOn("unlink", path, unlink); }

int Link(const String& path, const String& name) {
  const std::string second = ToUtf8(name);
  if (second.find('\0') != std::string::npos) {
    errno = EINVAL;
    return -1;
  }
  return CallOn("link", path, [&](const char* bytes) {
    return linkat(AT_FDCWD, bytes, AT_FDCWD, second.c_str(), 0);
  });
}

int SyncFileSystem(int descriptor) {
  return Call("syncfs", [&] { return syncfs(descriptor); });
}

int MakeFolder(const String& path, mode_t mode) {
  return CallOn("mkdir", path, [&](const char* bytes) { return mkdir(bytes, mode); });
}

int RemoveFolder(const String& path) { return CallOn("rmdir", path, rmdir); }

int ChangeFolder(const String& path) { return CallOn("chdir", path, chdir); }

int Lock(int descriptor) {
  return Call("flock", [&] { return flock(descriptor, LOCK_EX | LOCK_NB); });
}

ssize_t GetAttribute(int descriptor, const std::string& name, std::string& value) {
  return ReadGrowing("fgetxattr", value, [&](char* buffer, std::size_t size) {
    return fgetxattr(descriptor, name.c_str(), buffer, size);
  });
}

ssize_t ListAttributes(int descriptor, std::string& names) {
  return ReadGrowing("flistxattr", names, [&](char* buffer, std::size_t size) {
    return flistxattr(descriptor, buffer, size);
  });
}

int SetAttribute(int descriptor, const std::string& name, const std::string& value) {
  return Call("fsetxattr",
              [&] { return fsetxattr(descriptor, name.c_str(), value.data(), value.size(), 0); });
}

int RemoveAttribute(int descriptor, const std::string& name) {
  return Call("fremovexattr", [&] { return fremovexattr(descriptor, name.c_str()); });
}

int Stat(const String& path, struct stat& status) {
  return CallOn("stat", path, [&](const char* bytes) { return stat(bytes, &status); });
}

int StatLink(const String& path, struct stat& status) {
  return CallOn("lstat", path, [&](const char* bytes) { return lstat(bytes, &status); });
}

int Access(const String& path, int mode) {
  return CallOn("faccessat", path,
                [&](const char* bytes) { return faccessat(AT_FDCWD, bytes, mode, AT_EACCESS); });
}

int RealPath(const String& path, String& result) {
  return CallOn("realpath", path, [&](const char* bytes) {
    const std::unique_ptr<char, decltype(&free)> real(realpath(bytes, nullptr), free);
    if (!real) return -1;
    result = FromUtf8(real.get());
    return 0;
  });
}

int ReadLink(const String& path, String& result) {
  return CallOn("readlink", path, [&](const char* bytes) {
    char target[4096];
    const ssize_t size = readlink(bytes, target, sizeof target);
    if (size < 0) return -1;
    result = FromUtf8({target, static_cast<std::size_t>(size)});
    return 0;
  });
}

int SyncFolder(const String& folder) {
  const Descriptor descriptor(Open(folder, O_RDONLY | O_DIRECTORY));
  // A folder that may be written but not listed can't be opened. Some file systems don't flush
  // folders; there is nothing to wait for then.
  if (descriptor.Get() < 0) return errno == EACCES ? 0 : -1;
  return Sync(descriptor.Get()) < 0 && errno != EINVAL && errno != ENOTSUP ? -1 : 0;
}

void Throw(const String& path, int error) {
  int code = CodeFromErrno(error);
  struct stat status;
  if (error == ENOENT && stat(ToUtf8(FolderOf(path)).c_str(), &status) < 0) code = kPathNotFound;
  std::string name = ToUtf8(path);
  // Would end the message.
  std::replace(name.begin(), name.end(), '\0', '?');
  throw RuntimeError(code, name + ": " + std::strerror(error));
}

void CheckRegular(const struct stat& status, const String& path) {
  if (S_ISREG(status.st_mode)) return;
  throw RuntimeError(
      kPathFileAccess,
      ToUtf8(path) + (S_ISDIR(status.st_mode) ? " is a folder" : " is not a regular file"));
}

int OpenRegular(const String& path, int flags, mode_t mode) {
  struct stat status;
  // Looked at first, since even opening can do something to a pipe or a device.
  if (Stat(path, status) == 0)
    CheckRegular(status, path);
  else if (errno != ENOENT || !(flags & O_CREAT))
    Throw(path);
  Descriptor descriptor(Check(Open(path, flags, mode), path));
  Check(fstat(descriptor.Get(), &status), path);
  CheckRegular(status, path);
  return descriptor.Release();
}

}  // namespace sys
