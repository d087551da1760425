#include "platform/system/safe_save.h"

#include <fcntl.h>
#include <optional>

#include "platform/system/byte_file.h"
#include "platform/system/files.h"
#include "platform/system/posix/file_attributes.h"
#include "platform/system/posix/leftovers.h"
#include "platform/system/posix/scratch_file.h"
#include "platform/system/posix/sys.h"
#include "platform/system/signals.h"
#include "platform/system/work_file.h"
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

// Hands over what an open file holds; failures name the path.
Producer ContentOf(const sys::SharedDescriptor& file, const String& path) {
  return [file, path](const ByteSink& sink) { InputFile(file, path).ReadRest(sink); };
}

// Writes from the start. Returns the size.
off_t Write(const sys::SharedDescriptor& file, const String& path, const Producer& produce) {
  off_t size = 0;
  OutputFile output(file, path);
  produce([&](std::string_view bytes) {
    output.Write(bytes);
    size += static_cast<off_t>(bytes.size());
  });
  return size;
}

// Without cutting the file first, so that the old content always finds its place on the disk again.
void Overwrite(const sys::SharedDescriptor& file, const String& path, const Producer& produce) {
  const off_t size = Write(file, path, produce);
  sys::Check(sys::Truncate(file->Get(), size), path);
  sys::Check(sys::Sync(file->Get()), path);
}

// Keeps the content of a file in a copy that a person will know again.
void KeepCopy(const sys::SharedDescriptor& file, const String& path, ScratchFile& copy) {
  const String name = CopyPrefix(path);
  if (copy.Make(FolderOf(path), name, 0600) < 0) {
    if (!IsRefusal(errno) || spareFolder.empty()) sys::Throw(path);
    sys::Check(copy.Make(spareFolder, name, 0600), spareFolder);
  }
  Write(copy.File(), copy.Path(), ContentOf(file, path));
  sys::Check(sys::Sync(copy.Get()), copy.Path());
  sys::Check(copy.Close(), copy.Path());
  sys::Check(sys::SyncFolder(FolderOf(copy.Path())), copy.Path());
}

// The mode is what the file has.
void RewriteInPlace(const sys::SharedDescriptor& file, mode_t mode, const String& path,
                    const Producer& produce) {
  // Ended half way, the file would be half new.
  const SignalsHeld held;
  ScratchFile copy;
  KeepCopy(file, path, copy);
  try {
    Overwrite(file, path, produce);
  } catch (const std::exception& error) {
    try {
      Overwrite(file, path, ContentOf(copy.File(), copy.Path()));
    } catch (const std::exception&) {
      const String kept = copy.Path();
      copy.Leave();
      throw RuntimeError(
          CodeFromException(error),
          std::string(error.what()) + "; its old content is kept in " + ToUtf8(kept));
    }
    throw;
  }
  // The system takes these two away when a file is written.
  constexpr mode_t kRunsAs = S_ISUID | S_ISGID;
  struct stat now;
  sys::Check(fstat(file->Get(), &now), path);
  if ((mode & kRunsAs & ~now.st_mode) == 0) return;
  if (sys::ChangeMode(file->Get(), mode & 07777) == 0 && fstat(file->Get(), &now) == 0 &&
      (mode & kRunsAs & ~now.st_mode) == 0)
    return;
  throw RuntimeError(kPermissionDenied,
                     ToUtf8(path) + " is saved, but has lost its setuid or setgid permission");
}

// Moves the scratch file, once `write` has filled it, over the target. False when the system
// refuses that; the scratch file then holds the new content.
bool ReplaceByRename(ScratchFile& scratch, const String& target, std::optional<mode_t> mode,
                     const std::function<void()>& write) {
  write();
  struct stat made;
  sys::Check(fstat(scratch.Get(), &made), target);
  const bool otherMode = mode && (made.st_mode & 07777) != *mode;
  // The system may leave setgid out without an error.
  const bool modeKept =
      !otherMode || (sys::ChangeMode(scratch.Get(), *mode) == 0 &&
                     fstat(scratch.Get(), &made) == 0 && (made.st_mode & 07777) == *mode);
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
  // Opens what is there, or makes a file that is no more open to others than the model.
  explicit Replacement(const String& path, const String& model) : target_(Resolve(path)) {
    const String folder = FolderOf(target_);
    if (sys::Stat(target_, status_) < 0) {
      if (errno != ENOENT) sys::Throw(target_);
      MakeScratchLike(model, folder);
      return;
    }
    // Opened first: a rename would pass over a missing permission to write.
    const bool unreadable = sys::Access(target_, R_OK) < 0 && errno == EACCES;
    old_ = std::make_shared<sys::Descriptor>(
        sys::OpenRegular(target_, unreadable ? O_WRONLY : O_RDWR));
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
      RewriteInPlace(old_, status_.st_mode, target_, ContentOf(scratch_.File(), target_));
  }
  void Rewrite(const Producer& produce) { RewriteInPlace(old_, status_.st_mode, target_, produce); }
  const String& Target() const { return target_; }

 private:
  void MakeScratchLike(const String& model, const String& folder) {
    // The system gives this mode the folder's or the user's restrictions.
    mode_t mode = 0666;
    struct stat like, made;
    const bool isModelled = !model.empty() && sys::Stat(model, like) == 0;
    if (isModelled) mode &= like.st_mode | S_IRUSR | S_IWUSR;
    sys::Check(scratch_.Make(folder, kScratchPrefix, mode), target_);
    if (!isModelled) return;
    // What is for one group is not for another.
    sys::Check(fstat(scratch_.Get(), &made), target_);
    const mode_t group = (made.st_mode & S_IRWXO) << 3;
    if (made.st_gid != like.st_gid)
      sys::Check(sys::ChangeMode(scratch_.Get(), made.st_mode & 07777 & (group | ~mode_t{S_IRWXG})),
                 target_);
  }

  String target_;
  struct stat status_ = {};
  sys::SharedDescriptor old_;
  ScratchFile scratch_;
  bool canRename_ = false;
};

// A file for new content, beside its target where that can be had.
WorkFile MakeContent(const String& folder) try {
  return WorkFile(folder);
} catch (const RuntimeError& error) {
  if (error.Code != kPermissionDenied || spareFolder.empty()) throw;
  return WorkFile(spareFolder);
}

}  // namespace

void SetSpareFolder(const String& folder) { spareFolder = folder; }

std::vector<String> LeftoversBeside(const String& path) try {
  const String file = Resolve(path);
  std::vector<String> left;
  const String copies = CopyPrefix(file);
  SortLeftovers(file, FolderOf(file), {String(kScratchPrefix), copies}, left);
  if (!spareFolder.empty() && spareFolder != FolderOf(file))
    SortLeftovers(file, spareFolder, {copies}, left);
  return left;
} catch (const RuntimeError&) {
  return {};
}

void SafeSave(const String& path, const Producer& produce, const String& model) {
  Replacement file(path, model);
  if (!file.ByRename()) return file.Rewrite(produce);
  file.Rename([&](ScratchFile& scratch) { Write(scratch.File(), file.Target(), produce); });
}

void SafeReplace(const String& path, const std::function<void(OutputFile)>& write,
                 const String& model) {
  Replacement file(path, model);
  if (file.ByRename()) {
    return file.Rename(
        [&](ScratchFile& scratch) { write(OutputFile(scratch.File(), file.Target())); });
  }
  // All of it first: what may fail must not do so with the target half written.
  WorkFile content = MakeContent(FolderOf(file.Target()));
  write(content.Write());
  file.Rewrite([&](const ByteSink& sink) { content.Read().ReadRest(sink); });
}

bool SafeReplace(const String& path, const std::function<void(const String& scratch)>& write) {
  Replacement file(path, {});
  if (!file.ByRename()) return false;
  file.Rename([&](ScratchFile& scratch) { write(scratch.Path()); });
  return true;
}
