#include "platform/system/safe_save.h"

#include "platform/system/files.h"
#include "platform/system/posix/leftovers.h"
#include "platform/system/posix/replacement.h"
#include "platform/system/posix/rewrite_in_place.h"
#include "text/runtime_error.h"

namespace {

void PutInPlace(Replacement& file) {
  file.Finish();
  file.Flush();
  if (!file.Rename()) return file.Rewrite();
  sys::Check(sys::SyncFolder(FolderOf(file.Target())), file.Target());
}

}  // namespace

void SafeSave(const String& path, const std::function<void(const ByteSink&)>& produce,
              const String& model) {
  SafeReplace(
      path, [&](OutputFile file) { produce([&](std::string_view bytes) { file.Write(bytes); }); },
      model);
}

void SafeReplace(const String& path, const std::function<void(OutputFile)>& write,
                 const String& model) {
  Replacement file(path, model);
  write(file.Content());
  PutInPlace(file);
}

std::vector<String> LeftoversBeside(const String& path) try {
  const String file = ResolveTarget(path);
  std::vector<String> left;
  const String copies = CopyPrefix(file);
  SortLeftovers(file, FolderOf(file), {String(kScratchPrefix), copies}, left);
  if (!SpareFolder().empty() && SpareFolder() != FolderOf(file))
    SortLeftovers(file, SpareFolder(), {copies}, left);
  return left;
} catch (const RuntimeError&) {
  return {};
}
