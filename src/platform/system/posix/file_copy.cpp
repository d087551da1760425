#include "platform/system/file_copy.h"

#include <fcntl.h>

#include "platform/system/byte_file.h"
#include "platform/system/files.h"
#include "platform/system/posix/file_attributes.h"
#include "platform/system/posix/scratch_file.h"
#include "platform/system/posix/sys.h"

namespace {

struct stat OpenStatus(int descriptor, const String& path) {
  struct stat status;
  sys::Check(fstat(descriptor, &status), path);
  return status;
}

// Fills a new file, last its mode: until then it is this user's alone.
void Fill(int made, const String& path, const String& from) {
  const sys::Descriptor source(sys::OpenRegular(from, O_RDONLY));
  const struct stat status = OpenStatus(source.Get(), from);
  std::uint64_t place = 0;
  InputFile(from).ReadRest([&](std::string_view bytes) {
    sys::Check(sys::Write(made, bytes, place), path);
    place += bytes.size();
  });
  // What can't be kept is not worth the copy.
  CarryOwnerAndAttributes(source.Get(), status, made);
  sys::Check(sys::ChangeMode(made, status.st_mode & 0777), path);
  sys::Check(sys::SetTimes(made, status), path);
}

}  // namespace

bool CopyToNewName(const String& from, const String& to) {
  sys::Descriptor made(sys::Open(to, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0600));
  if (made.Get() < 0) {
    if (errno == EEXIST) return false;
    sys::Throw(to);
  }
  try {
    Fill(made.Get(), to, from);
    sys::Check(sys::Close(made.Release()), to);
  } catch (...) {
    DeleteFileQuietly(to);
    throw;
  }
  return true;
}

void CopyOver(const String& from, const String& to) {
  ScratchFile scratch;
  sys::Check(scratch.Make(FolderOf(to), u".wordflurn-", 0600), to);
  Fill(scratch.Get(), to, from);
  sys::Check(sys::Sync(scratch.Get()), to);
  sys::Check(sys::Rename(scratch.Path(), to), to);
  scratch.Leave();
  sys::Check(sys::SyncFolder(FolderOf(to)), to);
}

void CarryTimes(const String& from, const String& to) {
  struct stat status;
  if (sys::Stat(from, status) < 0) return;
  const sys::Descriptor file(sys::Open(to, O_RDONLY));
  if (file.Get() >= 0) sys::SetTimes(file.Get(), status);
}

void FlushContent(const String& path) {
  const sys::Descriptor file(sys::OpenRegular(path, O_RDONLY));
  sys::Check(sys::Sync(file.Get()), path);
}

String ResolvedPath(const String& path) {
  constexpr int kMostLinks = 40;
  String current = AbsolutePath(path);
  for (int links = 0; links < kMostLinks; ++links) {
    String real;
    if (sys::RealPath(current, real) == 0) return real;
    if (sys::RealPath(FolderOf(current), real) < 0) return current;
    current = JoinPath(real, FileNameOf(current));
    String target;
    if (sys::ReadLink(current, target) < 0) return current;
    current = AbsolutePath(target.starts_with(kPathSeparator) ? target : JoinPath(real, target));
  }
  sys::Throw(path, ELOOP);
}

String FileKey(const String& path) {
  struct stat status;
  if (sys::Stat(path, status) < 0) {
    // What stands in front of a ".." may have gone.
    const String resolved = ResolvedPath(path);
    if (sys::Stat(resolved, status) < 0) return resolved;
  }
  return Str(static_cast<long long>(status.st_dev)) + u":" +
         Str(static_cast<long long>(status.st_ino));
}

std::optional<FileStamp> StampOf(const String& path) {
  struct stat status;
  if (sys::Stat(path, status) < 0) {
    if (errno == ENOENT || errno == ENOTDIR) return {};
    sys::Throw(path);
  }
  if (!S_ISREG(status.st_mode)) return {};
  return FileStamp{static_cast<std::uint64_t>(status.st_size),
                   std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec};
}
