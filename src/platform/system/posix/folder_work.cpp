#include "platform/system/folder_work.h"

#include <dirent.h>
#include <fcntl.h>
#include <memory>

#include "platform/system/files.h"
#include "platform/system/posix/sys.h"

EntryKind KindOf(const String& path) {
  struct stat status;
  if (sys::StatLink(path, status) < 0) {
    if (errno == ENOENT || errno == ENOTDIR) return EntryKind::None;
    sys::Throw(path);
  }
  if (S_ISREG(status.st_mode)) return EntryKind::File;
  if (S_ISDIR(status.st_mode)) return EntryKind::Folder;
  return S_ISLNK(status.st_mode) ? EntryKind::Link : EntryKind::Other;
}

std::vector<String> EntriesIn(const String& folder) {
  sys::Descriptor descriptor(
      sys::Check(sys::Open(folder, O_RDONLY | O_DIRECTORY | O_NOFOLLOW), folder));
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(fdopendir(descriptor.Get()), closedir);
  if (!entries) sys::Throw(folder);
  descriptor.Release();
  std::vector<String> names;
  for (;;) {
    errno = 0;
    const dirent* entry = readdir(entries.get());
    if (!entry) break;
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.push_back(FromUtf8(name));
  }
  if (errno != 0) sys::Throw(folder);
  return names;
}

void RenameEntry(const String& from, const String& to) { sys::Check(sys::Rename(from, to), from); }

void RemoveTree(const String& path) {
  if (KindOf(path) != EntryKind::Folder) return DeleteFile(path);
  for (const String& name : EntriesIn(path)) RemoveTree(JoinPath(path, name));
  RemoveEmptyFolder(path);
}

void RemoveEmptyFolder(const String& path) { sys::Check(sys::RemoveFolder(path), path); }

void FlushFolder(const String& path) { sys::Check(sys::SyncFolder(path), path); }
