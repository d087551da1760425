#include "batch/new_names.h"

#include "platform/system/files.h"

String BatchFileExt(StringView path) {
  const std::size_t dot = path.rfind(u'.');
  return dot == StringView::npos ? String() : String(path.substr(dot + 1));
}

String WithExtension(StringView path, StringView extension) {
  const StringView name = FileNameOf(path);
  const std::size_t dot = name.rfind(u'.');
  const bool hasOwn = dot != StringView::npos && dot > 0;
  return String(path.substr(0, path.size() - (hasOwn ? name.size() - dot : 0))).append(extension);
}

String WithPrefix(StringView path, StringView prefix) {
  const StringView name = FileNameOf(path);
  return String(path.substr(0, path.size() - name.size())).append(prefix).append(name);
}
