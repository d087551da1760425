#include "platform/system/posix/file_attributes.h"

#include <map>
#include <string>

#include "platform/system/posix/sys.h"

namespace {

using Attributes = std::map<std::string, std::string>;

// False when one of them can't be read. A file system without attributes has none.
bool ReadAttributes(int descriptor, Attributes& attributes) {
  std::string names;
  if (sys::ListAttributes(descriptor, names) < 0) return errno == ENOTSUP || errno == ENOSYS;
  for (std::size_t start = 0; start < names.size();) {
    const std::string name = names.c_str() + start;
    if (sys::GetAttribute(descriptor, name, attributes[name]) < 0) return false;
    start += name.size() + 1;
  }
  return true;
}

}  // namespace

bool CarryOwnerAndAttributes(int from, const struct stat& status, int to) {
  struct stat made;
  if (fstat(to, &made) < 0) return false;
  const bool sameOwner = made.st_uid == status.st_uid && made.st_gid == status.st_gid;
  if (!sameOwner && sys::ChangeOwner(to, status.st_uid, status.st_gid) < 0) return false;

  Attributes wanted;
  Attributes present;
  if (!ReadAttributes(from, wanted) || !ReadAttributes(to, present)) return false;
  for (const auto& [name, value] : wanted) {
    const auto found = present.find(name);
    if (found != present.end() && found->second == value) continue;
    if (sys::SetAttribute(to, name, value) < 0) return false;
  }
  // A folder may hand attributes to each new file, such as its default access list.
  for (const auto& [name, value] : present)
    if (!wanted.contains(name) && sys::RemoveAttribute(to, name) < 0) return false;
  return true;
}
