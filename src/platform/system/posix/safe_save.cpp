#include "platform/system/safe_save.h"

#include <fcntl.h>
#include <optional>

#include "platform/system/byte_file.h"
#include "platform/system/files.h"
#include "platform/system/posix/file_attributes.h"
#include "platform/system/posix/scratch_file.h"
#include "platform/system/posix/sys.h"
#include "platform/system/signals.h"
#include "text/runtime_error.h"

namespace {

using Producer = std::function<void(const ByteSink&)>;

String spareFolder;

// Makes new files impossible while the file itself may still be written.
bool IsRefusal(int error) {
  return error == EACCES || error == EPERM || error == EROFS || error == EBUSY;
}

// The file that a path stands for, behind all links. The file need not be there, not even when
// links lead to it; its folder must.
String Resolve(const String& path) {
  constexpr int kMostLinks = 40;
  String current = path;
  for (int links = 0; links < kMostLinks; ++links) {
    String real;
    if (sys::RealPath(current, real) == 0) return real;
    if (errno != ENOENT) sys::Throw(path);
    String folder;
    if (sys::RealPath(FolderOf(current), folder) < 0) sys::Throw(current);
    const StringView name = FileNameOf(current);
    if (name.empty()) sys::Throw(path, ENOENT);
    current = JoinPath(folder, name);
    String target;
    if (sys::ReadLink(current, target) < 0) {
      if (errno == ENOENT || errno == EINVAL) return current;
      sys::Throw(current);
    }
    current = target.starts_with(kPathSeparator) ? target : JoinPath(folder, target);
  }
  sys::Throw(path, ELOOP);
}

void WriteAll(int descriptor, const String& path, const Producer& produce) {
  produce([&](std::string_view bytes) { sys::Check(sys::Write(descriptor, bytes), path); });
}

// Hands over what a file holds.
Producer ContentOf(const String& path) {
  return [path](const ByteSink& sink) { InputFile(path).ReadRest(sink); };
}

// Writes from the start without cutting the file first, so that the old content always finds its
// place on the disk again.
void Overwrite(int descriptor, const String& path, const Producer& produce) {
  off_t size = 0;
  sys::Check(sys::Rewind(descriptor), path);
  produce([&](std::string_view bytes) {
    sys::Check(sys::Write(descriptor, bytes), path);
    size += static_cast<off_t>(bytes.size());
  });
  sys::Check(sys::Truncate(descriptor, size), path);
  sys::Check(sys::Sync(descriptor), path);
}

// Keeps the content of a file in a copy that a person will know again.
void KeepCopy(const String& path, ScratchFile& copy) {
  // Leaves room for the digits in a name of 255 bytes.
  constexpr std::size_t kLongestName = 70;
  String name(FileNameOf(path).substr(0, kLongestName));
  if (IsHighSurrogate(name.back())) name.pop_back();
  name += u".old-";
  if (copy.Make(FolderOf(path), name, 0600) < 0) {
    if (!IsRefusal(errno) || spareFolder.empty()) sys::Throw(path);
    sys::Check(copy.Make(spareFolder, name, 0600), spareFolder);
  }
  WriteAll(copy.Get(), copy.Path(), ContentOf(path));
  sys::Check(sys::Sync(copy.Get()), copy.Path());
  sys::Check(copy.Close(), copy.Path());
  sys::Check(sys::SyncFolder(FolderOf(copy.Path())), copy.Path());
}

void RewriteInPlace(int descriptor, const String& path, const Producer& produce) {
  // Ended half way, the file would be half new.
  const SignalsHeld held;
  ScratchFile copy;
  KeepCopy(path, copy);
  try {
    Overwrite(descriptor, path, produce);
  } catch (const std::exception& error) {
    try {
      Overwrite(descriptor, path, ContentOf(copy.Path()));
    } catch (const std::exception&) {
      const String kept = copy.Path();
      copy.Leave();
      throw RuntimeError(
          CodeFromException(error),
          std::string(error.what()) + "; its old content is kept in " + ToUtf8(kept));
    }
    throw;
  }
}

// Moves the scratch file, once `write` has filled it, over the target. False when the system
// refuses that; the scratch file then holds the new content.
bool ReplaceByRename(ScratchFile& scratch, const String& target, std::optional<mode_t> mode,
                     const std::function<void()>& write) {
  const RemovedOnSignal removed(scratch.Path());
  write();
  struct stat made;
  sys::Check(fstat(scratch.Get(), &made), target);
  const bool otherMode = mode && (made.st_mode & 07777) != *mode;
  const bool modeKept = !otherMode || sys::ChangeMode(scratch.Get(), *mode) == 0;
  sys::Check(sys::Sync(scratch.Get()), target);
  sys::Check(scratch.Close(), target);
  if (!modeKept) return false;
  if (sys::Rename(scratch.Path(), target) < 0) {
    if (mode && IsRefusal(errno)) return false;
    sys::Throw(target);
  }
  scratch.Leave();
  sys::Check(sys::SyncFolder(FolderOf(target)), target);
  return true;
}

// How a file can be given new content.
class Replacement {
 public:
  // Opens what is there.
  explicit Replacement(const String& path) : target_(Resolve(path)) {
    const String folder = FolderOf(target_);
    if (sys::Stat(target_, status_) < 0) {
      if (errno != ENOENT) sys::Throw(target_);
      // The system gives this mode the folder's or the user's restrictions.
      sys::Check(scratch_.Make(folder, kScratchPrefix, 0666), target_);
      return;
    }
    // Opened first: a rename would pass over a missing permission to write.
    old_.emplace(sys::OpenRegular(target_, O_WRONLY));
    sys::Check(fstat(old_->Get(), &status_), target_);
    if (status_.st_nlink != 1) return;
    if (scratch_.Make(folder, kScratchPrefix, 0600) < 0) {
      if (!IsRefusal(errno)) sys::Throw(target_);
      return;
    }
    canRename_ = CarryOwnerAndAttributes(old_->Get(), status_, scratch_.Get());
  }

  bool ByRename() const { return !old_ || canRename_; }
  void Rename(const std::function<void(ScratchFile&)>& write) {
    std::optional<mode_t> mode;
    if (old_) mode = status_.st_mode & 07777;
    if (!ReplaceByRename(scratch_, target_, mode, [&] { write(scratch_); }))
      RewriteInPlace(old_->Get(), target_, ContentOf(scratch_.Path()));
  }
  void Rewrite(const Producer& produce) { RewriteInPlace(old_->Get(), target_, produce); }
  const String& Target() const { return target_; }

 private:
  static constexpr StringView kScratchPrefix = u".wordflurn-";

  String target_;
  struct stat status_ = {};
  std::optional<sys::Descriptor> old_;
  ScratchFile scratch_;
  bool canRename_ = false;
};

}  // namespace

void SetSpareFolder(const String& folder) { spareFolder = folder; }

void SafeSave(const String& path, const Producer& produce) {
  Replacement file(path);
  if (!file.ByRename()) return file.Rewrite(produce);
  file.Rename([&](ScratchFile& scratch) { WriteAll(scratch.Get(), file.Target(), produce); });
}

bool SafeReplace(const String& path, const std::function<void(const String& scratch)>& write) {
  Replacement file(path);
  if (!file.ByRename()) return false;
  file.Rename([&](ScratchFile& scratch) { write(scratch.Path()); });
  return true;
}
