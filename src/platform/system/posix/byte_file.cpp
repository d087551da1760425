#include "platform/system/byte_file.h"

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>

#include "platform/system/files.h"
#include "platform/system/posix/rewrite_in_place.h"
#include "platform/system/posix/sys.h"

namespace {

sys::SharedDescriptor Share(int descriptor) {
  return std::make_shared<sys::Descriptor>(descriptor);
}

bool IsForThisUserAlone(const struct stat& status) {
  return S_ISREG(status.st_mode) && status.st_uid == geteuid() && status.st_nlink == 1 &&
         (status.st_mode & 07777) == 0600;
}

int OpenEmpty(const String& path) {
  struct stat status;
  if (sys::StatLink(path, status) == 0) {
    if (!S_ISLNK(status.st_mode)) sys::CheckRegular(status, path);
    sys::Descriptor there(sys::Open(path, O_RDWR | O_NOFOLLOW));
    if (there.Get() >= 0 && fstat(there.Get(), &status) == 0 && IsForThisUserAlone(status)) {
      // Of an empty file too, a file system may write out all that comes when it is closed.
      if (status.st_size > 0) sys::Check(sys::Truncate(there.Get(), 0), path);
      return there.Release();
    }
    sys::Check(sys::Unlink(path), path);
  } else if (errno != ENOENT) {
    sys::Throw(path);
  }
  return sys::Check(sys::Open(path, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, 0600), path);
}

}  // namespace

InputFile::InputFile(const String& path)
    : InputFile(Share(sys::OpenRegular(path, O_RDONLY)), path) {}

InputFile::InputFile(std::shared_ptr<sys::Descriptor> file, const String& path)
    : file_(std::move(file)), path_(path) {}

std::size_t InputFile::Read(char* buffer, std::size_t size) {
  const auto got =
      static_cast<std::size_t>(sys::Check(sys::Read(file_->Get(), buffer, size, place_), path_));
  place_ += got;
  return got;
}

void InputFile::ReadRest(const std::function<void(std::string_view bytes)>& use) {
  // A small file needs no whole block.
  constexpr std::uint64_t kMost = 1 << 17;
  const auto length = static_cast<std::size_t>(std::min(Size() + 1, kMost));
  const auto block = std::make_unique_for_overwrite<char[]>(length);
  while (const std::size_t size = Read(block.get(), length)) use({block.get(), size});
}

std::uint64_t InputFile::Size() const {
  struct stat status;
  sys::Check(fstat(file_->Get(), &status), path_);
  return static_cast<std::uint64_t>(status.st_size);
}

OutputFile::OutputFile(const String& path) : OutputFile(Share(OpenEmpty(path)), path) {}

OutputFile::OutputFile(std::shared_ptr<sys::Descriptor> file, const String& path)
    : file_(std::move(file)), path_(path) {}

void OutputFile::Write(std::string_view bytes) {
  sys::Check(sys::Write(file_->Get(), bytes, place_), path_);
  place_ += bytes.size();
}

InputFile OutputFile::TakeContent() {
  sys::SharedDescriptor taken = OpenNamelessFor(path_);
  OutputFile copy(taken, path_);
  InputFile(file_, path_).ReadRest([&](std::string_view bytes) { copy.Write(bytes); });
  sys::Check(sys::Truncate(file_->Get(), 0), path_);
  place_ = 0;
  return {std::move(taken), path_};
}

void OutputFile::Close() {
  if (file_) sys::Check(sys::LetGo(file_), path_);
}
