#include "platform/system/posix/rewrite_in_place.h"

#include "platform/system/files.h"
#include "platform/system/posix/scratch_file.h"
#include "text/runtime_error.h"

bool IsRefusal(int error) {
  return error == EACCES || error == EPERM || error == EROFS || error == EBUSY;
}

namespace {

using Producer = std::function<void(const ByteSink&)>;

String spareFolder;

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
    if (!IsRefusal(errno) || SpareFolder().empty()) sys::Throw(path);
    sys::Check(copy.Make(SpareFolder(), name, 0600), SpareFolder());
  }
  Write(copy.File(), copy.Path(), ContentOf(file, path));
  sys::Check(sys::Sync(copy.Get()), copy.Path());
  sys::Check(copy.Close(), copy.Path());
  sys::Check(sys::SyncFolder(FolderOf(copy.Path())), copy.Path());
}

// The system takes these two away when a file is written.
void KeepSetId(const sys::SharedDescriptor& file, mode_t mode, const String& path) {
  const auto isKept = [&] {
    struct stat now;
    return fstat(file->Get(), &now) == 0 && (mode & (S_ISUID | S_ISGID) & ~now.st_mode) == 0;
  };
  if (isKept() || (sys::ChangeMode(file->Get(), mode) == 0 && isKept())) return;
  throw RuntimeError(kPermissionDenied,
                     ToUtf8(path) + " is saved, but has lost its setuid or setgid permission");
}

}  // namespace

const String& SpareFolder() { return spareFolder; }

void SetSpareFolder(const String& folder) { spareFolder = folder; }

sys::SharedDescriptor OpenNamelessFor(const String& path) {
  sys::SharedDescriptor file = OpenNameless(FolderOf(path));
  if (!file && IsRefusal(errno) && !spareFolder.empty()) file = OpenNameless(spareFolder);
  if (!file) sys::Throw(path);
  return file;
}

void RewriteInPlace(const sys::SharedDescriptor& file, const struct stat& status,
                    const String& path, const Producer& produce) {
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
  KeepSetId(file, status.st_mode & 07777, path);
}
