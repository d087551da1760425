#include "platform/system/work_folder.h"

#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <unistd.h>

#include "platform/system/files.h"
#include "platform/system/posix/scratch_file.h"
#include "platform/system/posix/sys.h"
#include "platform/system/signals.h"
#include "text/runtime_error.h"

namespace {

// In place of the data folder where that itself can't be locked.
constexpr StringView kLockName = u"WFLOCK";
constexpr StringView kPrivatePrefix = u"WFTEMP-";
constexpr int kMostAttempts = 1000;

// Opens and locks a file or a folder. No descriptor and EWOULDBLOCK when another process has the
// lock, ENOENT when the name led elsewhere by the time the lock was had, EINVAL for a pipe and the
// like.
sys::Descriptor OpenLocked(const String& path, int flags) {
  sys::Descriptor lock(sys::Open(path, flags | O_NOFOLLOW, 0600));
  struct stat locked, named;
  if (lock.Get() < 0 || fstat(lock.Get(), &locked) < 0) return {};
  if (!S_ISREG(locked.st_mode) && !S_ISDIR(locked.st_mode)) {
    errno = EINVAL;
    return {};
  }
  if (sys::Lock(lock.Get()) < 0 || sys::StatLink(path, named) < 0) return {};
  if (locked.st_dev == named.st_dev && locked.st_ino == named.st_ino) return lock;
  errno = ENOENT;
  return {};
}

// Again and again, until what was locked has the name.
sys::Descriptor LockByName(const String& path, int flags) {
  sys::Descriptor lock;
  for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
    lock = OpenLocked(path, flags);
    if (lock.Get() >= 0 || errno != ENOENT) break;
  }
  return lock;
}

// Errors of file systems that know no such locks, or none on folders.
bool LacksLocks(int error) {
  return error == ENOLCK || error == EOPNOTSUPP || error == ENOSYS || error == EINVAL ||
         error == EBADF;
}

void RemoveTree(const String& path) {
  std::error_code ignored;
  std::filesystem::remove_all(ToUtf8(path), ignored);
}

bool IsNumber(StringView text) {
  return !text.empty() && text.find_first_not_of(u"0123456789") == StringView::npos;
}

// The process number, and a count where it was taken.
bool IsPrivateName(StringView name) {
  if (!name.starts_with(kPrivatePrefix)) return false;
  name.remove_prefix(kPrivatePrefix.size());
  const std::size_t hyphen = name.find(u'-');
  return IsNumber(name.substr(0, hyphen)) &&
         (hyphen == StringView::npos || IsNumber(name.substr(hyphen + 1)));
}

// Deletes work files of earlier runs in a folder. Links are deleted, not followed.
void DeleteWorkFiles(const String& folder, const WorkFolder::IsWorkFile& isWorkFile) {
  for (const String& name : FilesIn(folder))
    if (isWorkFile(name)) DeleteFileQuietly(JoinPath(folder, name));
}

bool HoldsOnlyWorkFiles(const String& folder, const WorkFolder::IsWorkFile& isWorkFile) {
  std::error_code error;
  for (std::filesystem::directory_iterator entry(ToUtf8(folder), error), end;
       !error && entry != end; entry.increment(error)) {
    if (entry->symlink_status().type() != std::filesystem::file_type::regular ||
        !isWorkFile(FromUtf8(entry->path().filename().native())))
      return false;
  }
  return !error;
}

bool IsOwn(int descriptor) {
  struct stat status;
  return fstat(descriptor, &status) == 0 && status.st_uid == geteuid() &&
         (status.st_mode & 07777) == 0700;
}

// Who can lock a private folder knows that its process is gone. One that has been made and not yet
// locked goes, too; its maker notices and makes another.
void RemoveStale(const String& folder, const WorkFolder::IsWorkFile& isWorkFile) try {
  DeleteWorkFiles(folder, isWorkFile);
  const auto isKnown = [&](StringView name) {
    return isWorkFile(name) || name.starts_with(kScratchPrefix);
  };
  for (const String& name : SubFolders(folder)) {
    if (!IsPrivateName(name)) continue;
    const String path = JoinPath(folder, name);
    const sys::Descriptor lock = OpenLocked(path, O_RDONLY | O_DIRECTORY);
    if (lock.Get() < 0 || !IsOwn(lock.Get()) || !HoldsOnlyWorkFiles(path, isKnown)) continue;
    DeleteWorkFiles(path, isKnown);
    sys::RemoveFolder(path);
  }
} catch (const RuntimeError&) {
  // A folder that can't be listed can be worked in all the same.
}

// Names the data folder, whatever part of its path is to blame, and the way out.
void MakeDataFolder(const String& path) try {
  MakeFolders(path, 0700);
  sys::Check(sys::Access(path, W_OK | X_OK), path);
} catch (const RuntimeError& error) {
  throw RuntimeError(error.Code, "The data folder " + ToUtf8(path) + " can't be made or written: " +
                                     error.what() + ". WORDFLURN_HOME can name another one.");
}

}  // namespace

struct WorkFolder::State {
  explicit State(const String& folder) : DataFolder(folder) {}

  // Makes the folder and locks it, by which others know that it is in use. One that can't be locked
  // can't be taken for a stale one either: nobody else gets its lock.
  String MakePrivate() {
    const String base = String(kPrivatePrefix) + Str(getpid());
    for (int number = 0; number < kMostAttempts; ++number) {
      const String path = JoinPath(DataFolder, number == 0 ? base : base + u"-" + Str(number));
      // A signal in between would remove a folder by this name that is another's.
      const SignalsHeld held;
      if (sys::MakeFolder(path, 0700) < 0) {
        // Processes that can't see each other may have the same number.
        if (errno == EEXIST) continue;
        sys::Throw(path);
      }
      Own = OpenLocked(path, O_RDONLY | O_DIRECTORY);
      if (Own.Get() >= 0 || LacksLocks(errno)) {
        Removed.emplace(path, RemovedOnSignal::Kind::Folder);
        return path;
      }
      if (errno != ENOENT && errno != EWOULDBLOCK) {
        const int error = errno;
        sys::RemoveFolder(path);
        sys::Throw(path, error);
      }
    }
    sys::Throw(DataFolder, EEXIST);
  }

  String DataFolder;
  sys::Descriptor Own;
  std::optional<RemovedOnSignal> Removed;
  std::weak_ptr<const void> Held;
};

WorkFolder::WorkFolder(const String& dataFolder, const IsWorkFile& isWorkFile)
    : state_(std::make_unique<State>(AbsolutePath(dataFolder))) {
  MakeDataFolder(state_->DataFolder);
  RemoveStale(state_->DataFolder, isWorkFile);
  path_ = state_->MakePrivate();
}

WorkFolder::~WorkFolder() {
  // Still locked, so that nobody takes it for a stale one half way.
  RemoveTree(path_);
}

DataLock WorkFolder::Lock() const {
  if (const auto held = state_->Held.lock()) return DataLock(held);
  const String& folder = state_->DataFolder;
  // The folder itself: a file in it can be removed while programs run. Behind links, since none is
  // followed from here on.
  String real = folder;
  sys::RealPath(folder, real);
  sys::Descriptor lock = LockByName(real, O_RDONLY | O_DIRECTORY);
  if (lock.Get() < 0 && (LacksLocks(errno) || errno == EACCES))
    lock = LockByName(JoinPath(real, kLockName), O_RDWR | O_CREAT);
  if (lock.Get() < 0 && errno == EWOULDBLOCK) {
    throw RuntimeError(kPermissionDenied,
                       ToUtf8(folder) + ": another WordFlurn is using this data folder");
  }
  if (lock.Get() < 0 && !LacksLocks(errno)) sys::Throw(folder);
  const std::shared_ptr<const void> held = std::make_shared<sys::Descriptor>(std::move(lock));
  state_->Held = held;
  return DataLock(held);
}

void WorkFolder::WhileLocked(const std::function<void()>& change) const {
  const DataLock held = Lock();
  change();
}
