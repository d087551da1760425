#include "platform/system/files.h"

String JoinPath(StringView folder, StringView name) {
  if (folder.empty()) return String(name);
  while (!name.empty() && name.front() == kPathSeparator) name.remove_prefix(1);
  String result(folder);
  if (result.back() != kPathSeparator) result += kPathSeparator;
  return result += name;
}

StringView FileNameOf(StringView path) {
  return path.substr(path.rfind(kPathSeparator) + 1);  // npos + 1 is 0
}

String FolderOf(StringView path) {
  const std::size_t separator = path.rfind(kPathSeparator);
  if (separator == StringView::npos) return u".";
  const std::size_t last = path.find_last_not_of(kPathSeparator, separator);
  return last == StringView::npos ? u"/" : String(path.substr(0, last + 1));
}
