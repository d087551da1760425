#include "platform/system/posix/scratch_file.h"

#include <fcntl.h>
#include <random>

#include "platform/system/files.h"

namespace {

String RandomDigits() {
  std::random_device random;
  String digits;
  for (auto value = random(); digits.size() < kScratchDigits; value = random())
    for (int digit = 0; digit < 8; ++digit, value >>= 4) digits += u"0123456789abcdef"[value & 15];
  return digits;
}

}  // namespace

ScratchFile::~ScratchFile() {
  if (removed_) sys::Unlink(path_);
}

int ScratchFile::Make(const String& folder, StringView prefix, mode_t mode) {
  path_ = JoinPath(folder, String(prefix) + RandomDigits());
  removed_.emplace(path_);
  sys::Descriptor made(sys::Open(path_, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, mode));
  if (made.Get() < 0) {
    removed_.reset();
    return -1;
  }
  // On a file system without locks nobody can take it for a leftover either.
  sys::Lock(made.Get());
  descriptor_ = std::make_shared<sys::Descriptor>(std::move(made));
  return 0;
}

String CopyPrefix(const String& path) {
  // Leaves room for the digits in a name of 255 bytes.
  constexpr std::size_t kLongestName = 70;
  String name(FileNameOf(path).substr(0, kLongestName));
  if (!name.empty() && IsHighSurrogate(name.back())) name.pop_back();
  return name + u".old-";
}

sys::SharedDescriptor OpenNameless(const String& folder) {
  sys::Descriptor descriptor(sys::Open(folder, O_TMPFILE | O_RDWR, 0600));
  if (descriptor.Get() >= 0) return std::make_shared<sys::Descriptor>(std::move(descriptor));
  if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL) return nullptr;
  // A file system that can't: the name goes right after it was made.
  ScratchFile named;
  return named.Make(folder, kScratchPrefix, 0600) < 0 ? nullptr : named.File();
}
