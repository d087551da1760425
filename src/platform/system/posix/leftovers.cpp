#include "platform/system/posix/leftovers.h"

#include <algorithm>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <limits>
#include <memory>
#include <unistd.h>

#include "platform/system/byte_file.h"
#include "platform/system/files.h"
#include "platform/system/posix/scratch_file.h"
#include "platform/system/posix/sys.h"
#include "text/runtime_error.h"

namespace {

// Within this time a new scratch file is locked by its maker.
constexpr std::time_t kSecondsToLock = 2;

bool IsScratchName(std::string_view name, const String& prefix) {
  const std::string bytes = ToUtf8(prefix);
  return name.size() == bytes.size() + kScratchDigits && name.starts_with(bytes) &&
         name.find_first_not_of("0123456789abcdef", bytes.size()) == std::string_view::npos;
}

// Opens and locks a file that no running program uses and that was not written after `youngest`.
// Null for others.
sys::SharedDescriptor OpenLeftover(const String& path, std::time_t youngest) {
  auto file = std::make_shared<sys::Descriptor>(sys::Open(path, O_RDONLY | O_NOFOLLOW));
  struct stat status, named;
  if (file->Get() < 0 || fstat(file->Get(), &status) < 0) return nullptr;
  if (!S_ISREG(status.st_mode) || status.st_uid != geteuid()) return nullptr;
  if (status.st_mtime > youngest) return nullptr;
  if (sys::Lock(file->Get()) < 0 || sys::StatLink(path, named) < 0) return nullptr;
  return named.st_ino == status.st_ino && named.st_dev == status.st_dev ? file : nullptr;
}

bool SameContent(InputFile one, InputFile other) {
  if (one.Size() != other.Size()) return false;
  std::vector<char> first(1 << 16), second(1 << 16);
  while (const std::size_t size = one.Read(first.data(), first.size())) {
    for (std::size_t filled = 0; filled < size;) {
      const std::size_t got = other.Read(second.data() + filled, size - filled);
      if (got == 0) return false;
      filled += got;
    }
    if (!std::equal(first.begin(), first.begin() + static_cast<std::ptrdiff_t>(size),
                    second.begin()))
      return false;
  }
  return true;
}

template <class Action>
void ForEachScratch(const String& folder, const std::vector<String>& prefixes, Action action) {
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(ToUtf8(folder).c_str()), closedir);
  if (!entries) return;
  while (const dirent* entry = readdir(entries.get())) {
    const bool isScratch = std::any_of(prefixes.begin(), prefixes.end(), [&](const String& prefix) {
      return IsScratchName(entry->d_name, prefix);
    });
    if (isScratch) action(JoinPath(folder, FromUtf8(entry->d_name)));
  }
}

}  // namespace

void SortLeftovers(const String& file, const String& folder, const std::vector<String>& prefixes,
                   std::vector<String>& left) {
  ForEachScratch(folder, prefixes, [&](const String& path) {
    const sys::SharedDescriptor found = OpenLeftover(path, std::time(nullptr) - kSecondsToLock);
    if (!found) return;
    const InputFile content(found, path);
    if (content.Size() == 0 || (FileExists(file) && SameContent(content, InputFile(file))))
      sys::Unlink(path);
    else
      left.push_back(path);
  });
}

void RemoveScratch(const String& folder, const String& prefix) {
  ForEachScratch(folder, {prefix}, [](const String& path) {
    if (OpenLeftover(path, std::numeric_limits<std::time_t>::max())) sys::Unlink(path);
  });
}
