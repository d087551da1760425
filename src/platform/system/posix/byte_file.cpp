#include "platform/system/byte_file.h"

#include <fcntl.h>
#include <utility>
#include <vector>

#include "platform/system/files.h"
#include "platform/system/posix/scratch_file.h"
#include "platform/system/posix/sys.h"

namespace {

int OpenEmpty(const String& path) {
  sys::Descriptor descriptor(sys::OpenRegular(path, O_WRONLY | O_CREAT, 0600));
  struct stat status;
  sys::Check(fstat(descriptor.Get(), &status), path);
  // Of an empty file too, a file system may write out all that comes when it is closed.
  if (status.st_size > 0) sys::Check(sys::Truncate(descriptor.Get(), 0), path);
  return descriptor.Release();
}

// A new file without a name, or -1.
int OpenNameless(const String& folder) {
  const int descriptor = sys::Open(folder, O_TMPFILE | O_RDWR, 0600);
  if (descriptor >= 0 || (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL))
    return descriptor;
  // A file system that can't: the name goes right after it was made.
  ScratchFile named;
  return named.Make(folder, u".wordflurn-", 0600) < 0 ? -1 : named.Release();
}

}  // namespace

InputFile::InputFile(const String& path)
    : descriptor_(sys::OpenRegular(path, O_RDONLY)), path_(path) {}

InputFile InputFile::CopyOf(const String& path) {
  InputFile source(path);
  InputFile copy(sys::Check(OpenNameless(FolderOf(path)), path), path);
  source.ReadRest(
      [&](std::string_view bytes) { sys::Check(sys::Write(copy.descriptor_, bytes), path); });
  copy.Rewind();
  return copy;
}

InputFile::InputFile(InputFile&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), path_(std::move(other.path_)) {}

InputFile& InputFile::operator=(InputFile&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  std::swap(path_, other.path_);
  return *this;
}

InputFile::~InputFile() {
  if (descriptor_ >= 0) sys::Close(descriptor_);
}

std::size_t InputFile::Read(char* buffer, std::size_t size) {
  return static_cast<std::size_t>(sys::Check(sys::Read(descriptor_, buffer, size), path_));
}

void InputFile::ReadRest(const std::function<void(std::string_view bytes)>& use) {
  std::vector<char> block(1 << 17);
  while (const std::size_t size = Read(block.data(), block.size())) use({block.data(), size});
}

void InputFile::Rewind() { sys::Check(sys::Rewind(descriptor_), path_); }

std::uint64_t InputFile::Size() const {
  struct stat status;
  sys::Check(fstat(descriptor_, &status), path_);
  return static_cast<std::uint64_t>(status.st_size);
}

OutputFile::OutputFile(const String& path) : descriptor_(OpenEmpty(path)), path_(path) {}

OutputFile::OutputFile(OutputFile&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), path_(std::move(other.path_)) {}

OutputFile& OutputFile::operator=(OutputFile&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  std::swap(path_, other.path_);
  return *this;
}

OutputFile::~OutputFile() {
  if (descriptor_ >= 0) sys::Close(descriptor_);
}

void OutputFile::Write(std::string_view bytes) {
  sys::Check(sys::Write(descriptor_, bytes), path_);
}

void OutputFile::Close() {
  if (descriptor_ < 0) return;
  sys::Check(sys::Close(std::exchange(descriptor_, -1)), path_);
}
