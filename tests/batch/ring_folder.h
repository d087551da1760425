#pragma once
// A ring of backups on the disk, written and read as "1a 2b 10-": run "a" in folder 1, "b" in 2, an
// empty folder 10.

#include <sstream>

#include "platform/test_folder.h"

inline constexpr const char* kFullRing = "1a 2b 3c 4d 5e 6f 7g 8h 9i 10j";

inline void PutRing(const TestFolder& data, const std::string& ring) {
  namespace fs = std::filesystem;
  std::istringstream words(ring);
  for (std::string word; words >> word;) {
    const std::string name(1, word.back());
    word.pop_back();
    const std::string folder = "MFF-Backups/" + word;
    fs::create_directories(data.Path / folder);
    fs::permissions(data.Path / folder, fs::perms::owner_all);
    if (name == "-") continue;
    data.Put(folder + "/WFMFFDIR.DAT", "11-19-2026\r\n14:05:09\r\nrun " + name + "\r\n");
    data.Put(folder + "/README", name);
    data.Put(folder + "/.hidden", name);
    fs::create_directory(data.Path / folder / "sub");
    data.Put(folder + "/sub/file", name);
    fs::create_directory_symlink(data.Path, data.Path / folder / "link");
  }
}

inline std::string RingOf(const TestFolder& data) {
  namespace fs = std::filesystem;
  std::string ring;
  for (int number = 0; number <= 10; ++number) {
    const std::string folder = "MFF-Backups/" + std::to_string(number);
    if (!fs::exists(data.Path / folder)) continue;
    if (!ring.empty()) ring += ' ';
    ring += std::to_string(number);
    std::string name = data.Get(folder + "/README");
    if (name.empty()) name = fs::is_empty(data.Path / folder) ? "-" : "?";
    ring += name;
  }
  return ring;
}
