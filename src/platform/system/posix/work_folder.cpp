#include "platform/system/work_folder.h"

#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

#include "platform/system/files.h"
#include "platform/system/posix/sys.h"
#include "text/runtime_error.h"

namespace {

constexpr StringView kLockName = u"WFLOCK";
constexpr StringView kPrivatePrefix = u"WFTEMP-";
constexpr int kMostNames = 1000;

bool IsRegularOrFolder(const struct stat& status) {
  return S_ISREG(status.st_mode) || S_ISDIR(status.st_mode);
}

// Opens and locks a file or a folder. No descriptor and EWOULDBLOCK when another process has the
// lock, ENOENT when the name led elsewhere by the time the lock was had, EINVAL for a pipe and the
// like.
sys::Descriptor OpenLocked(const String& path, int flags) {
  sys::Descriptor lock(sys::Open(path, flags | O_NOFOLLOW, 0600));
  struct stat locked, named;
  if (lock.Get() < 0 || fstat(lock.Get(), &locked) < 0) return {};
  if (!IsRegularOrFolder(locked)) {
    errno = EINVAL;
    return {};
  }
  if (sys::Lock(lock.Get()) < 0) return {};
  if (sys::StatLink(path, named) == 0 && locked.st_dev == named.st_dev &&
      locked.st_ino == named.st_ino)
    return lock;
  errno = ENOENT;
  return {};
}

// Errors of file systems that know no such locks.
bool LacksLocks(int error) {
  return error == ENOLCK || error == EOPNOTSUPP || error == ENOSYS || error == EINVAL;
}

void RemoveTree(const String& path) {
  std::error_code ignored;
  std::filesystem::remove_all(ToUtf8(path), ignored);
}

bool IsPrivateName(StringView name) {
  return name.starts_with(kPrivatePrefix) && name.size() > kPrivatePrefix.size() &&
         name.find_first_not_of(u"0123456789-", kPrivatePrefix.size()) == StringView::npos;
}

sys::Descriptor LockFile(const String& path) {
  sys::Descriptor lock;
  for (int attempt = 0; attempt < kMostNames; ++attempt) {
    lock = OpenLocked(path, O_RDWR | O_CREAT);
    if (lock.Get() >= 0 || errno != ENOENT) break;
  }
  return lock;
}

// Who can lock a private folder knows that its process is gone. One that has been made and not yet
// locked goes, too; its maker notices and makes another.
void RemoveStale(const String& folder) {
  for (const String& name : SubFolders(folder)) {
    if (!IsPrivateName(name)) continue;
    const String path = JoinPath(folder, name);
    const sys::Descriptor lock = OpenLocked(path, O_RDONLY | O_DIRECTORY);
    if (lock.Get() >= 0) RemoveTree(path);
  }
}

// Makes a private folder and locks it. One that can't be locked can't be taken for a stale one
// either: nobody else gets its lock.
sys::Descriptor MakePrivate(const String& folder, String& path) {
  const String base = String(kPrivatePrefix) + Str(getpid());
  for (int number = 0; number < kMostNames; ++number) {
    path = JoinPath(folder, number == 0 ? base : base + u"-" + Str(number));
    if (sys::MakeFolder(path, 0700) < 0) {
      // Processes that can't see each other may have the same number.
      if (errno == EEXIST) continue;
      sys::Throw(path);
    }
    sys::Descriptor lock = OpenLocked(path, O_RDONLY | O_DIRECTORY);
    if (lock.Get() >= 0 || LacksLocks(errno)) return lock;
    if (errno != ENOENT && errno != EWOULDBLOCK) {
      const int error = errno;
      RemoveTree(path);
      sys::Throw(path, error);
    }
  }
  sys::Throw(folder, EEXIST);
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
  String LockPath;
  sys::Descriptor Lock;
  bool HoldsLock = false;
};

WorkFolder::WorkFolder(const String& dataFolder)
    : path_(AbsolutePath(dataFolder)), state_(std::make_unique<State>()) {
  MakeDataFolder(path_);
  RemoveStale(path_);
  state_->LockPath = JoinPath(path_, kLockName);
  state_->Lock = LockFile(state_->LockPath);
  state_->HoldsLock = state_->Lock.Get() >= 0;
  if (state_->HoldsLock) return;
  // Whatever the reason (a file system without locks, another thing by that name): a private folder
  // works all the same, or tells better what is wrong.
  const String folder = path_;
  state_->Lock = MakePrivate(folder, path_);
}

WorkFolder::~WorkFolder() {
  // Still locked, so that nobody takes it for a stale one half way.
  if (!state_->HoldsLock) RemoveTree(path_);
}

bool WorkFolder::HoldsLock() const { return state_->HoldsLock; }

void WorkFolder::WhileLocked(const std::function<void()>& change) const {
  sys::Descriptor lock;
  if (!HoldsLock()) {
    lock = LockFile(state_->LockPath);
    if (lock.Get() < 0 && errno == EWOULDBLOCK) {
      throw RuntimeError(kPermissionDenied, ToUtf8(FolderOf(state_->LockPath)) +
                                                ": another WordFlurn is using this data folder");
    }
    if (lock.Get() < 0 && !LacksLocks(errno)) sys::Throw(state_->LockPath);
  }
  change();
}
