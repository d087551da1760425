#include "platform/system/posix/replacement.h"

#include <fcntl.h>

#include "platform/system/files.h"
#include "platform/system/posix/file_attributes.h"
#include "platform/system/posix/rewrite_in_place.h"
#include "text/runtime_error.h"

String ResolveTarget(const String& path) {
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

Replacement::Replacement(const String& path, const String& model, StringView prefix,
                         const OnFolder& onFolder)
    : target_(ResolveTarget(path)) {
  const String folder = FolderOf(target_);
  if (onFolder) onFolder(folder);
  if (sys::Stat(target_, status_) < 0) {
    if (errno != ENOENT) sys::Throw(target_);
    MakeScratchLike(model, folder, prefix);
    byRename_ = true;
    return;
  }
  // Opened first: a rename would pass over a missing permission to write.
  const bool unreadable = sys::Access(target_, R_OK) < 0 && errno == EACCES;
  old_ =
      std::make_shared<sys::Descriptor>(sys::OpenRegular(target_, unreadable ? O_WRONLY : O_RDWR));
  sys::Check(fstat(old_->Get(), &status_), target_);
  if (status_.st_nlink != 1) return;
  if (scratch_.Make(folder, prefix, 0600) < 0) {
    if (!IsRefusal(errno)) sys::Throw(target_);
    return;
  }
  byRename_ = CarryOwnerAndAttributes(old_->Get(), status_, scratch_.Get());
}

void Replacement::MakeScratchLike(const String& model, const String& folder, StringView prefix) {
  // The system gives this mode the folder's or the user's restrictions.
  mode_t mode = 0666;
  struct stat like, made;
  const bool isModelled = !model.empty() && sys::Stat(model, like) == 0;
  if (isModelled) mode &= like.st_mode | S_IRUSR | S_IWUSR;
  sys::Check(scratch_.Make(folder, prefix, mode), target_);
  if (!isModelled) return;
  // What is for one group is not for another.
  sys::Check(fstat(scratch_.Get(), &made), target_);
  const mode_t group = (made.st_mode & S_IRWXO) << 3;
  if (made.st_gid != like.st_gid)
    sys::Check(sys::ChangeMode(scratch_.Get(), made.st_mode & 07777 & (group | ~mode_t{S_IRWXG})),
               target_);
}

OutputFile Replacement::Content() {
  if (byRename_) return {scratch_.File(), target_};
  content_ = OpenNamelessFor(target_);
  return {content_, target_};
}

void Replacement::Finish() {
  if (!byRename_) return;
  sys::Check(scratch_.Close(), target_);
  if (!old_) return;
  const mode_t mode = status_.st_mode & 07777;
  const auto hasMode = [&] {
    struct stat made;
    sys::Check(fstat(scratch_.Get(), &made), target_);
    return (made.st_mode & 07777) == mode;
  };
  // The system may leave setgid out without an error.
  byRename_ = hasMode() || (sys::ChangeMode(scratch_.Get(), mode) == 0 && hasMode());
}

void Replacement::Flush() {
  if (byRename_) sys::Check(sys::Sync(scratch_.Get()), target_);
}

bool Replacement::Rename() {
  if (!byRename_) return false;
  if (sys::Rename(scratch_.Path(), target_) == 0) {
    scratch_.Leave();
    return true;
  }
  if (!old_ || !IsRefusal(errno)) sys::Throw(target_);
  return false;
}

void Replacement::Rewrite() {
  RewriteInPlace(old_, status_, target_, [&](const ByteSink& sink) {
    InputFile(content_ ? content_ : scratch_.File(), target_).ReadRest(sink);
  });
}
