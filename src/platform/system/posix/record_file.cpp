#include "platform/system/record_file.h"

#include <fcntl.h>
#include <utility>

#include "platform/system/posix/sys.h"

RecordFile::RecordFile(const String& path)
    : descriptor_(
          sys::Check(sys::Open(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0600), path)),
      path_(path) {}

RecordFile::~RecordFile() {
  if (descriptor_ >= 0) sys::Close(descriptor_);
}

void RecordFile::CheckWhole() const {
  if (broken_) sys::Throw(path_, EIO);
}

void RecordFile::Append(std::string_view bytes) {
  CheckWhole();
  if (sys::Write(descriptor_, bytes, size_) == 0) {
    size_ += bytes.size();
    return;
  }
  const int error = errno;
  broken_ = sys::Truncate(descriptor_, static_cast<off_t>(size_)) < 0;
  sys::Throw(path_, error);
}

void RecordFile::Flush() {
  CheckWhole();
  if (sys::Sync(descriptor_) == 0) return;
  broken_ = true;
  sys::Throw(path_);
}

void RecordFile::Close() {
  if (descriptor_ >= 0) sys::Check(sys::Close(std::exchange(descriptor_, -1)), path_);
}
