#include "platform/byte_file.h"

#include <fcntl.h>
#include <utility>

#include "platform/console/sys.h"

namespace {

int OpenEmpty(const String& path) {
  sys::Descriptor descriptor(sys::OpenRegular(path, O_WRONLY | O_CREAT, 0600));
  sys::Check(sys::Truncate(descriptor.Get(), 0), path);
  return descriptor.Release();
}

}  // namespace

InputFile::InputFile(const String& path)
    : descriptor_(sys::OpenRegular(path, O_RDONLY)), path_(path) {}

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
