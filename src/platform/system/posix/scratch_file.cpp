#include "platform/system/posix/scratch_file.h"

#include <fcntl.h>
#include <random>

#include "platform/system/files.h"

namespace {

String RandomDigits() {
  std::random_device random;
  String digits;
  for (int word = 0; word < 2; ++word) {
    auto value = random();
    for (int digit = 0; digit < 8; ++digit, value >>= 4) digits += u"0123456789abcdef"[value & 15];
  }
  return digits;
}

}  // namespace

ScratchFile::~ScratchFile() {
  if (!path_.empty()) sys::Unlink(path_);
}

int ScratchFile::Make(const String& folder, StringView prefix, mode_t mode) {
  const String path = JoinPath(folder, String(prefix) + RandomDigits());
  sys::Descriptor made(sys::Open(path, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, mode));
  if (made.Get() < 0) return -1;
  descriptor_ = std::make_shared<sys::Descriptor>(std::move(made));
  path_ = path;
  return 0;
}

sys::SharedDescriptor OpenNameless(const String& folder) {
  sys::Descriptor descriptor(sys::Open(folder, O_TMPFILE | O_RDWR, 0600));
  if (descriptor.Get() >= 0) return std::make_shared<sys::Descriptor>(std::move(descriptor));
  if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL) return nullptr;
  // A file system that can't: the name goes right after it was made.
  ScratchFile named;
  return named.Make(folder, u".wordflurn-", 0600) < 0 ? nullptr : named.File();
}
