#include "platform/system/files.h"

#include <fcntl.h>
#include <unistd.h>

#include "platform/system/byte_file.h"
#include "platform/system/posix/sys.h"

namespace {

struct stat StatusOf(const String& path) {
  struct stat status;
  sys::Check(sys::Stat(path, status), path);
  return status;
}

bool IsSameFile(const String& one, const String& other) {
  struct stat first, second;
  return sys::Stat(one, first) == 0 && sys::Stat(other, second) == 0 &&
         first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

}  // namespace

bool FileExists(const String& path) {
  struct stat status;
  return sys::Stat(path, status) == 0 && !S_ISDIR(status.st_mode);
}

bool FolderExists(const String& path) {
  struct stat status;
  return sys::Stat(path, status) == 0 && S_ISDIR(status.st_mode);
}

void TestReadable(const String& path) {
  char byte;
  InputFile(path).Read(&byte, 1);
}

bool IsExecutable(const String& path) { return FileExists(path) && sys::Access(path, X_OK) == 0; }

bool IsReadOnly(const String& path) { return (StatusOf(path).st_mode & 0222) == 0; }

void SetReadOnly(const String& path, bool readOnly) {
  const mode_t mode = StatusOf(path).st_mode & 07777;
  const mode_t wanted = readOnly ? mode & ~mode_t{0222} : mode | S_IWUSR;
  if (wanted != mode) sys::Check(sys::ChangeMode(path, wanted), path);
}

void CopyFileContent(const String& from, const String& to) {
  InputFile source(from);
  if (IsSameFile(from, to)) return;
  OutputFile target(to);
  source.ReadRest([&](std::string_view bytes) { target.Write(bytes); });
  target.Close();
}

void FlushFile(const String& path) {
  const sys::Descriptor file(sys::OpenRegular(path, O_RDONLY));
  sys::Check(sys::Sync(file.Get()), path);
  sys::Check(sys::SyncFolder(FolderOf(path)), path);
}

void DeleteFile(const String& path) { sys::Check(sys::Unlink(path), path); }

void DeleteFileQuietly(const String& path) noexcept {
  try {
    sys::Unlink(path);
  } catch (const std::bad_alloc&) {
  }
}

void MakeFolder(const String& path, unsigned mode) {
  sys::Check(sys::MakeFolder(path, mode), path);
}

void MakeFolders(const String& path, unsigned mode) {
  if (FolderExists(path)) return;
  if (const String parent = FolderOf(path); parent.size() < path.size()) MakeFolders(parent, mode);
  // Another process may be making the same folders.
  if (sys::MakeFolder(path, mode) == 0 || (errno == EEXIST && FolderExists(path))) return;
  sys::Throw(path, errno == EEXIST ? ENOTDIR : errno);
}

bool CanWriteIn(const String& folder) {
  return FolderExists(folder) && sys::Access(folder, W_OK | X_OK) == 0;
}
