#include "batch/folder_search.h"

#include "platform/system/files.h"
#include "platform/system/folder_work.h"
#include "platform/window/file_lists.h"
#include "platform/window/natural_order.h"
#include "text/runtime_error.h"

namespace {

// Those that are entered, the last one in front.
std::vector<String> FoldersToEnter(const String& folder, StringView pattern) {
  std::vector<String> names = SubFolders(folder);
  if (pattern != kEveryFile)
    std::erase_if(names, [](const String& name) { return name.starts_with(u'.'); });
  SortNaturally(names);
  std::vector<String> paths;
  for (auto name = names.rbegin(); name != names.rend(); ++name) {
    String path = JoinPath(folder, *name);
    // A link may lead back here.
    if (KindOf(path) != EntryKind::Link) paths.push_back(std::move(path));
  }
  return paths;
}

}  // namespace

bool FindFiles(const String& folder, StringView pattern, FoundFiles& found,
               const std::function<bool(std::size_t count)>& goesOn) {
  std::vector<String> waiting{folder};
  while (!waiting.empty()) {
    if (!goesOn(found.Files.size())) return false;
    const String here = std::move(waiting.back());
    waiting.pop_back();
    try {
      for (const String& name : FittingFiles(here, pattern, true))
        found.Files.push_back(JoinPath(here, name));
      for (String& inside : FoldersToEnter(here, pattern)) waiting.push_back(std::move(inside));
    } catch (const RuntimeError&) {
      ++found.Unreadable;
    }
  }
  return true;
}
