#include "platform/system/work_file.h"

#include <sys/mman.h>

#include "platform/system/files.h"
#include "platform/system/posix/scratch_file.h"
#include "platform/system/posix/sys.h"

namespace {

// Making a file is what takes longest with small ones.
constexpr std::uint64_t kMostInMemory = 1024 * 1024;

sys::SharedDescriptor Make(const String& folder, std::uint64_t expected) {
  if (expected <= kMostInMemory) {
    if (const int memory = memfd_create("work file", MFD_CLOEXEC); memory >= 0)
      return std::make_shared<sys::Descriptor>(memory);
  }
  return OpenNameless(folder);
}

}  // namespace

WorkFile::WorkFile(const String& folder, std::uint64_t expected)
    : file_(Make(folder, expected)), path_(JoinPath(folder, u"work file")) {
  if (!file_) sys::Throw(folder);
}

OutputFile WorkFile::Write() {
  if (Read().Size() > 0) sys::Check(sys::Truncate(file_->Get(), 0), path_);
  return {file_, path_};
}
