#include "batch/backup_name.h"

#include "platform/system/files.h"

String NumberedName(int number, StringView bare) {
  constexpr std::size_t kLongestName = 255;
  String name = number == 0 ? String(bare) : (Str(number) + u"---").append(bare);
  while (ToUtf8(name).size() > kLongestName) {
    name.pop_back();
    if (IsHighSurrogate(name.back())) name.pop_back();
  }
  return name;
}

String FullPath(const String& path) {
  return path.starts_with(kPathSeparator) ? path : AbsolutePath(path);
}
