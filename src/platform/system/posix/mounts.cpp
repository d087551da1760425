#include "platform/system/posix/mounts.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <sstream>

namespace {

constexpr std::array<std::string_view, 3> kMediaFolders{"/media/", "/run/media/", "/mnt/"};

// Where a system mounts things that are not for its users, whatever their type.
constexpr std::array<std::string_view, 5> kSystemFolders{"/boot", "/proc", "/sys", "/dev", "/snap"};

// Media of all kinds, and other machines.
constexpr std::array<std::string_view, 18> kUserTypes{
    "vfat", "exfat", "ntfs", "ntfs3", "fuseblk", "iso9660",    "udf",         "hfs", "hfsplus",
    "nfs",  "nfs4",  "cifs", "smb3",  "9p",      "fuse.sshfs", "fuse.davfs2", "afs", "ceph"};

// Kept in memory or made up by the kernel.
constexpr std::array<std::string_view, 12> kPseudoTypes{
    "tmpfs",  "ramfs",   "proc",    "sysfs",  "devtmpfs", "devpts",
    "cgroup", "cgroup2", "overlay", "autofs", "fusectl",  "fuse.portal"};

template <class Table>
bool Contains(const Table& table, std::string_view value) {
  return std::find(table.begin(), table.end(), value) != table.end();
}

bool IsOctal(char c) { return c >= '0' && c <= '7'; }

std::string Decode(std::string_view field) {
  std::string result;
  for (std::size_t i = 0; i < field.size(); ++i) {
    const std::string_view code = field.substr(i, 4);
    if (code.size() == 4 && code[0] == '\\' && std::all_of(code.begin() + 1, code.end(), IsOctal)) {
      result += static_cast<char>((code[1] - '0') * 64 + (code[2] - '0') * 8 + (code[3] - '0'));
      i += 3;
    } else {
      result += field[i];
    }
  }
  return result;
}

bool IsForUsers(const std::string& folder, const std::string& type) {
  if (Contains(kPseudoTypes, type)) return false;
  const auto isMedia = [&](std::string_view media) {
    // "/mnt" itself is one as well.
    return folder.starts_with(media) || folder + "/" == media;
  };
  const auto isSystem = [&](std::string_view system) {
    return folder == system || folder.starts_with(std::string(system) + "/");
  };
  if (std::any_of(kMediaFolders.begin(), kMediaFolders.end(), isMedia)) return true;
  return Contains(kUserTypes, type) &&
         std::none_of(kSystemFolders.begin(), kSystemFolders.end(), isSystem);
}

}  // namespace

std::string SystemMounts() {
  std::ifstream file("/proc/self/mounts", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> UserMounts(std::string_view table) {
  std::vector<std::string> folders;
  std::istringstream lines{std::string(table)};
  for (std::string line; std::getline(lines, line);) {
    std::istringstream fields(line);
    std::string device, folder, type;
    if (!(fields >> device >> folder >> type)) continue;
    folder = Decode(folder);
    if (IsForUsers(folder, type) && !Contains(folders, folder)) folders.push_back(folder);
  }
  return folders;
}
