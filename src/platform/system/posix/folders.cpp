// Which folders there are, and what is in them.

#include <algorithm>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <pwd.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include "platform/system/files.h"
#include "platform/system/posix/mounts.h"
#include "platform/system/posix/sys.h"

namespace {

// DT_REG or DT_DIR, behind links; anything else for other kinds.
unsigned char KindOf(int folder, const dirent& entry) {
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return entry.d_type;
  struct stat status;
  if (fstatat(folder, entry.d_name, &status, 0) < 0) return DT_UNKNOWN;
  return static_cast<unsigned char>(IFTODT(status.st_mode));
}

std::vector<String> Sorted(std::vector<String> names) {
  std::vector<std::pair<String, String>> keyed;
  keyed.reserve(names.size());
  for (String& name : names) {
    String key = LCase(name);
    keyed.emplace_back(std::move(key), std::move(name));
  }
  std::sort(keyed.begin(), keyed.end());
  names.clear();
  for (auto& [key, name] : keyed) names.push_back(std::move(name));
  return names;
}

// As sys::Check; the separator behind the path tells that it is a folder that is missing.
int CheckFolder(int result, const String& path) {
  return sys::Check(result, path.ends_with(kPathSeparator) ? path : path + kPathSeparator);
}

std::vector<String> NamesIn(const String& path, unsigned char kind) {
  sys::Descriptor descriptor(CheckFolder(sys::Open(path, O_RDONLY | O_DIRECTORY), path));
  const std::unique_ptr<DIR, int (*)(DIR*)> folder(fdopendir(descriptor.Get()), closedir);
  if (!folder) sys::Throw(path);
  descriptor.Release();
  std::vector<String> names;
  for (;;) {
    errno = 0;
    const dirent* entry = readdir(folder.get());
    if (!entry) break;
    const std::string_view name = entry->d_name;
    if (name != "." && name != ".." && KindOf(dirfd(folder.get()), *entry) == kind)
      names.push_back(FromUtf8(name));
  }
  if (errno != 0) sys::Throw(path);
  return Sorted(std::move(names));
}

}  // namespace

std::vector<String> SubFolders(const String& path) { return NamesIn(path, DT_DIR); }
std::vector<String> FilesIn(const String& path) { return NamesIn(path, DT_REG); }

String CurrentFolder() {
  const std::unique_ptr<char, decltype(&free)> folder(getcwd(nullptr, 0), free);
  if (!folder) sys::Throw(u".");
  return FromUtf8(folder.get());
}

void SetCurrentFolder(const String& path) { CheckFolder(sys::ChangeFolder(path), path); }

String AbsolutePath(const String& path) {
  String result = path.starts_with(kPathSeparator) ? String(u"/") : CurrentFolder();
  StringView rest = path;
  while (!rest.empty()) {
    const StringView name = rest.substr(0, rest.find(kPathSeparator));
    rest.remove_prefix(std::min(name.size() + 1, rest.size()));
    if (name.empty() || name == u".") continue;
    if (name != u"..") {
      result = JoinPath(result, name);
      continue;
    }
    // What is above a link is above the folder that it leads to.
    String real;
    if (sys::RealPath(result, real) == 0) result = std::move(real);
    result = FolderOf(result);
  }
  return result;
}

String Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? FromUtf8(value) : String();
}

String HomeFolder() {
  if (const String home = Environment("HOME"); home.starts_with(kPathSeparator)) return home;
  const passwd* user = getpwuid(getuid());
  return user && user->pw_dir[0] == '/' ? FromUtf8(user->pw_dir) : String(u"/");
}

String ProgramFolder() {
  const String link = u"/proc/self/exe";
  String program;
  sys::Check(sys::ReadLink(link, program), link);
  return FolderOf(program);
}

std::vector<String> Volumes() {
  std::vector<String> volumes{u"/"};
  const auto add = [&](const String& folder) {
    if (std::find(volumes.begin(), volumes.end(), folder) == volumes.end())
      volumes.push_back(folder);
  };
  add(AbsolutePath(HomeFolder()));
  for (const std::string& mount : UserMounts(SystemMounts())) add(FromUtf8(mount));
  return volumes;
}
