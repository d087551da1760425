#include "batch/list_file.h"

#include "batch/ring_folder.h"
#include "platform/system/files.h"

namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

// Absolute paths below the folder, which is left out.
Names Below(const TestFolder& folder, const std::vector<String>& paths) {
  Names names;
  for (const String& path : paths) {
    std::string name = ToUtf8(path);
    if (name.starts_with(folder.Path.native() + "/"))
      name.erase(0, folder.Path.native().size() + 1);
    names.push_back(name);
  }
  return names;
}

TEST(ListFile, WhatItsLinesName) {
  const TestFolder folder(kMemory);
  const String before = CurrentFolder();
  SetCurrentFolder(folder / "");
  fs::create_directories(folder.Path / "sub/deep");
  for (const char* name : {"a", "b", " c ", "\xC3\xA9", "\xFF", "sub/d"}) folder.Put(name, "x");
  fs::create_symlink("a", folder.Path / "link");
  fs::create_directory_symlink("sub/deep", folder.Path / "far");
  mkfifo((folder.Path / "pipe").c_str(), 0600);
  const struct {
    const char* What;
    std::string Content;
    Names Files, Missing;
  } cases[] = {
      {"nothing", "", {}, {}},
      {"blank lines, any line end, none at the end", "\r\n \r\n\na\r\nb\r\r a ", {"a", "b"}, {}},
      {"a mark",
       "\xEF\xBB\xBF"
       "a\n",
       {"a"},
       {}},
      {"blanks that are part of a name", " c \n", {" c "}, {}},
      {"Windows-1252 and UTF-8", "\xE9\n\xC3\xA9\n", {"\xC3\xA9"}, {}},
      {"bytes of the file system first", "\xFF\n", {"\xFF"}, {}},
      {"links are not followed, but for what is above one",
       "link\nfar/../d\nfar/../../b\n",
       {"link", "sub/d", "b"},
       {}},
      {"the same file by any detour", "a\n./a\nsub/../a\nsub//d\nsub/d\n", {"a", "sub/d"}, {}},
      {"what is no file", "sub\npipe\n/dev/null\ngone\n", {}, {"sub", "pipe", "/dev/null", "gone"}},
      {"a NUL", std::string("a\0b\n", 4), {}, {std::string("a\0b", 3)}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.What);
    folder.Put("list.wff", c.Content);
    const FileList list = ReadListFile(folder / "list.wff");
    EXPECT_EQ(Below(folder, list.Files), c.Files);
    EXPECT_EQ(Below(folder, list.Missing), c.Missing);
  }
  for (const char* name : {"gone", "pipe", "sub"})
    EXPECT_NE(CodeOf([&] { ReadListFile(folder / name); }), 0) << name;
  SetCurrentFolder(before);
}

TEST(ListFile, TheFilesOfAFolder) {
  const TestFolder folder(kMemory);
  fs::create_directory(folder.Path / "dir.txt");
  for (const char* name : {"b.TXT", "a.html", "c.htm", ".d.txt", "e.log", "f.txt~"})
    folder.Put(name, "x");
  fs::create_symlink("e.log", folder.Path / "link.txt");
  fs::create_symlink("gone", folder.Path / "broken.txt");
  EXPECT_EQ(Below(folder, FilesToFlurn(folder / "")),
            (Names{"a.html", "b.TXT", "c.htm", "link.txt"}));
  EXPECT_NE(CodeOf([&] { FilesToFlurn(folder / "gone"); }), 0);
}

}  // namespace
