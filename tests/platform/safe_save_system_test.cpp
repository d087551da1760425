// Saving against the real system: other users, access lists, limits.

#include <chrono>
#include <cstdint>
#include <fcntl.h>
#include <grp.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include "platform/system/files.h"
#include "platform/system/safe_save.h"
#include "platform/system/signals.h"
#include "platform/test_folder.h"

namespace {

namespace fs = std::filesystem;

constexpr uid_t kSomebody = 65534;
constexpr uid_t kOther = 65533;

void Save(const String& path, const std::string& content) {
  SafeSave(path, [&](const ByteSink& sink) { sink(content); });
}

struct stat StatusOf(const fs::path& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
  return status;
}

// The action runs in a process that has dropped the rights of root.
int AsSomebody(const std::function<void()>& action) {
  return InChild([&] {
    ASSERT_EQ(setgroups(0, nullptr), 0);
    ASSERT_EQ(setegid(kSomebody), 0);
    ASSERT_EQ(seteuid(kSomebody), 0);
    action();
  });
}

class AsRoot : public ::testing::Test {
 protected:
  void SetUp() override {
    if (geteuid() != 0) GTEST_SKIP() << "needs root to become somebody else";
    ASSERT_EQ(chmod(folder.Path.c_str(), 0755), 0);
  }
  // A file of somebody else, and the mode and owner of the folder.
  void Put(const char* name, uid_t owner, mode_t mode) {
    folder.Put(name, "old");
    ASSERT_EQ(chown((folder.Path / name).c_str(), owner, owner), 0);
    ASSERT_EQ(chmod((folder.Path / name).c_str(), mode), 0);
  }
  void GiveFolder(uid_t owner, mode_t mode) {
    ASSERT_EQ(chown(folder.Path.c_str(), owner, owner), 0);
    ASSERT_EQ(chmod(folder.Path.c_str(), mode), 0);
  }
  TestFolder folder;
};

TEST(SafeSave, LinksStayLinks) {
  const TestFolder folder;
  fs::create_directories(folder.Path / "sub/deep");
  const std::pair<const char*, const char*> links[]{
      {"first", "sub/second"}, {"sub/second", "deep/file"}, {"loop", "loop"}};
  for (const auto& [link, target] : links) fs::create_symlink(target, folder.Path / link);
  for (const char* content : {"made", "replaced"}) {
    Save(folder / "first", content);
    EXPECT_TRUE(fs::is_symlink(folder.Path / "first"));
    EXPECT_TRUE(fs::is_symlink(folder.Path / "sub/second"));
    EXPECT_EQ(folder.Get("sub/deep/file"), content);
  }
  EXPECT_EQ(CodeOf([&] { Save(folder / "loop", "x"); }), kPathFileAccess);
  fs::create_symlink("missing/file", folder.Path / "lost");
  EXPECT_EQ(CodeOf([&] { Save(folder / "lost", "x"); }), kPathNotFound);
}

TEST(SafeSave, RefusesWhatIsNoFile) {
  const TestFolder folder;
  ASSERT_EQ(mkfifo((folder.Path / "pipe").c_str(), 0600), 0);
  const std::pair<String, int> cases[]{{folder / "", 75},      {folder / "pipe", 75},
                                       {u"/dev/null", 75},     {folder / "missing/name", 76},
                                       {folder / "name/", 76}, {u"", 53}};
  for (const auto& [path, code] : cases)
    EXPECT_EQ(CodeOf([&, &name = path] { Save(name, "x"); }), code) << ToUtf8(path);
  EXPECT_EQ(folder.Names(), std::set<std::string>{"pipe"});
}

TEST(SafeSave, AnyNameOfAnyLengthAndNothingOfAProducerThatFails) {
  const TestFolder folder;
  folder.Put("name", "a longer old text");
  const std::string longName(255, 'n');
  fs::create_hard_link(folder.Path / "name", folder.Path / longName);
  folder.Put("alone", "a longer old text");
  const auto names = folder.Names();
  for (const std::string& name : {std::string("alone"), longName}) {
    EXPECT_THROW(SafeSave(folder / name,
                          [](const ByteSink& sink) {
                            sink("new");
                            throw std::bad_alloc();
                          }),
                 std::bad_alloc);
    EXPECT_EQ(folder.Get(name), "a longer old text");
    Save(folder / name, "new");
    EXPECT_EQ(folder.Get(name), "new");
  }
  EXPECT_EQ(folder.Get("name"), "new");
  EXPECT_EQ(folder.Names(), names);
}

TEST(SafeSave, AttributesAndModeStay) {
  const TestFolder folder;
  folder.Put("name", "old");
  const std::string path = (folder.Path / "name").native();
  ASSERT_EQ(chmod(path.c_str(), 0604), 0);
  const std::string value("a\0b", 3);
  if (setxattr(path.c_str(), "user.note", value.data(), value.size(), 0) < 0)
    GTEST_SKIP() << "no extended attributes here";
  const auto inode = StatusOf(path).st_ino;
  Save(folder / "name", "new");
  EXPECT_NE(StatusOf(path).st_ino, inode) << "not renamed";
  char found[8];
  ASSERT_EQ(getxattr(path.c_str(), "user.note", found, sizeof found), 3);
  EXPECT_EQ(std::string(found, 3), value);
  EXPECT_EQ(StatusOf(path).st_mode & 07777, 0604u);
  EXPECT_EQ(folder.Get("name"), "new");
}

// An access list as the kernel takes it: owner, one user, group, mask, others.
std::string AccessList(std::uint16_t user) {
  struct Entry {
    std::uint16_t Tag, Permissions;
    std::uint32_t Id;
  };
  const Entry entries[]{
      {0x01, 6, ~0u}, {0x02, user, kSomebody}, {0x04, 4, ~0u}, {0x10, 6, ~0u}, {0x20, 0, ~0u}};
  const std::uint32_t version = 2;
  std::string bytes(reinterpret_cast<const char*>(&version), sizeof version);
  return bytes.append(reinterpret_cast<const char*>(entries), sizeof entries);
}

TEST(SafeSave, AccessListsStayAndNoneIsInherited) {
  const TestFolder folder;
  folder.Put("plain", "old");
  folder.Put("listed", "old");
  const auto set = [](const fs::path& path, const char* name, const std::string& list) {
    return setxattr(path.c_str(), name, list.data(), list.size(), 0);
  };
  const char* kAccess = "system.posix_acl_access";
  if (set(folder.Path / "listed", kAccess, AccessList(6)) < 0)
    GTEST_SKIP() << "no access lists here";
  // New files in this folder inherit a list.
  ASSERT_EQ(set(folder.Path, "system.posix_acl_default", AccessList(4)), 0);
  for (const char* name : {"plain", "listed", "new"}) Save(folder / name, "new");

  const auto listOf = [&](const char* name) {
    char value[256];
    const ssize_t size = getxattr((folder.Path / name).c_str(), kAccess, value, sizeof value);
    return size < 0 ? "" : std::string(value, static_cast<std::size_t>(size));
  };
  EXPECT_EQ(listOf("plain"), "");
  EXPECT_EQ(StatusOf(folder.Path / "plain").st_mode & 0777, 0644u);
  EXPECT_EQ(listOf("listed"), AccessList(6));
  EXPECT_EQ(listOf("new"), AccessList(4));
}

TEST_F(AsRoot, AnOwnerThatCantBeKeptIsRewrittenInPlace) {
  GiveFolder(kSomebody, 0755);
  Put("name", kOther, 0666);
  EXPECT_EQ(AsSomebody([&] { Save(folder / "name", "new"); }), 0);
  EXPECT_EQ(folder.Get("name"), "new");
  EXPECT_EQ(StatusOf(folder.Path / "name").st_uid, kOther);
  EXPECT_EQ(folder.Names(), std::set<std::string>{"name"});
}

TEST_F(AsRoot, AFolderThatCantBeWrittenNeedsTheSpareFolder) {
  Put("name", kSomebody, 0644);
  const TestFolder spare;
  ASSERT_EQ(chown(spare.Path.c_str(), kSomebody, kSomebody), 0);
  EXPECT_EQ(AsSomebody([&] {
              EXPECT_EQ(CodeOf([&] { Save(folder / "name", "new"); }), kPermissionDenied);
              EXPECT_EQ(folder.Get("name"), "old");
              SetSpareFolder(spare / "");
              Save(folder / "name", "new");
              EXPECT_EQ(CodeOf([&] { Save(folder / "made", "new"); }), kPermissionDenied);
            }),
            0);
  EXPECT_EQ(folder.Get("name"), "new");
  EXPECT_EQ(folder.Names(), std::set<std::string>{"name"});
  EXPECT_TRUE(spare.Names().empty());
}

TEST_F(AsRoot, AFileThatMayNotBeWrittenStays) {
  GiveFolder(kSomebody, 0755);
  Put("foreign", kOther, 0644);
  Put("readonly", kSomebody, 0444);
  for (const char* name : {"foreign", "readonly"}) {
    EXPECT_EQ(AsSomebody([&] {
                EXPECT_EQ(CodeOf([&] { Save(folder / name, "new"); }), kPermissionDenied);
                EXPECT_EQ(CodeOf([&] { SetReadOnly(folder / "foreign", true); }),
                          kPermissionDenied);
              }),
              0);
    EXPECT_EQ(folder.Get(name), "old");
  }
  EXPECT_EQ(folder.Names(), (std::set<std::string>{"foreign", "readonly"}));
}

// Works for anybody: the kernel writes a part of the new content and refuses the rest.
TEST(SafeSave, AFileGrownTooLargeKeepsTheOldContent) {
  EXPECT_EQ(InChild([] {
              PrepareProcess();
              const rlimit limit{5000, 5000};
              setrlimit(RLIMIT_FSIZE, &limit);
              const TestFolder folder;
              folder.Put("name", "old");
              fs::create_hard_link(folder.Path / "name", folder.Path / "second");
              folder.Put("alone", "old");
              for (const char* name : {"name", "alone"}) {
                EXPECT_EQ(CodeOf([&] { Save(folder / name, std::string(9000, 'n')); }), kDiskFull);
                EXPECT_EQ(folder.Get(name), "old");
              }
              EXPECT_EQ(folder.Names().size(), 3u);
            }),
            0);
}

TEST(SafeSave, ANewFileIsNoMoreReadableThanItsModel) {
  const mode_t before = umask(022);
  const struct {
    int Model, New;
  } cases[]{{-1, 0644}, {0600, 0600}, {0400, 0600}, {0640, 0640}, {0666, 0644}, {0755, 0644}};
  for (const auto& [model, made] : cases) {
    const TestFolder folder;
    if (model >= 0) {
      folder.Put("model", "");
      fs::permissions(folder.Path / "model", fs::perms(model));
    }
    for (const bool open : {false, true}) {
      if (open)
        SafeReplace(
            folder / "open", [](OutputFile) {}, folder / "model");
      else
        SafeSave(
            folder / "sink", [](const ByteSink&) {}, folder / "model");
      EXPECT_EQ(StatusOf(folder.Path / (open ? "open" : "sink")).st_mode, S_IFREG | made);
    }
    if (geteuid() != 0 || model < 0) continue;
    ASSERT_EQ(chown((folder.Path / "model").c_str(), 0, kOther), 0);
    SafeSave(
        folder / "other", [](const ByteSink&) {}, folder / "model");
    EXPECT_EQ(StatusOf(folder.Path / "other").st_mode & 070, made & 07 ? 040u : 0u);
  }
  umask(before);
}

TEST_F(AsRoot, ARewriteInPlaceKeepsSetuidOrSaysSo) {
  GiveFolder(kSomebody, 0755);
  const struct {
    const char* Name;
    uid_t Owner;
    mode_t Mode, Left;
    int Code;
  } cases[]{{"own", kSomebody, 06755, 06755, 0}, {"foreign", kOther, 06777, 0777, 70}};
  for (const auto& each : cases) {
    Put(each.Name, each.Owner, each.Mode);
    fs::create_hard_link(folder.Path / each.Name, folder.Path / "second");
    EXPECT_EQ(InChild([&] {
                ASSERT_EQ(setgroups(0, nullptr), 0);
                ASSERT_EQ(setresgid(kSomebody, kSomebody, kSomebody), 0);
                ASSERT_EQ(setresuid(kSomebody, kSomebody, kSomebody), 0);
                EXPECT_EQ(CodeOf([&] { Save(folder / each.Name, "new"); }), each.Code);
              }),
              0);
    EXPECT_EQ(StatusOf(folder.Path / each.Name).st_mode & 07777, each.Left);
    EXPECT_EQ(folder.Get(each.Name), "new");
    fs::remove(folder.Path / "second");
  }
}

TEST(SafeSave, LeftoversAreRemovedOrNamed) {
  const TestFolder folder, spare;
  SetSpareFolder(spare / "");
  const std::string kDigits = "0123456789abcdef";
  folder.Put("name", "text");
  fs::create_symlink("name", folder.Path / "link");
  enum class Fate { Goes, IsNamed, Stays };
  const struct {
    std::string Name, Content;
    Fate After;
  } cases[]{{".wordflurn-0" + kDigits.substr(1), "text", Fate::Goes},
            {".wordflurn-1" + kDigits.substr(1), "", Fate::Goes},
            {".wordflurn-2" + kDigits.substr(1), "next", Fate::IsNamed},
            {".wordflurn-3" + kDigits.substr(1), "longer", Fate::IsNamed},
            {".wordflurn-b" + kDigits.substr(1), "te", Fate::IsNamed},
            {".wordflurn-" + kDigits + "4", "text", Fate::Stays},
            {".wordflurn-of mine 0123456", "text", Fate::Stays},
            {"name.old-5" + kDigits.substr(1), "text", Fate::Goes},
            {"name.old-6" + kDigits.substr(1), "old", Fate::IsNamed},
            {"other.old-7" + kDigits.substr(1), "text", Fate::Stays},
            {".wordflurn-8" + kDigits.substr(1), "text", Fate::Stays},
            {".wordflurn-9" + kDigits.substr(1), "text", Fate::Stays}};
  for (const TestFolder* where : {&folder, &spare}) {
    for (const auto& each : cases) {
      where->Put(each.Name, each.Content);
      if (each.Name[11] != '8')  // made in this moment
        fs::last_write_time(where->Path / each.Name,
                            fs::file_time_type::clock::now() - std::chrono::hours(1));
    }
  }
  // Of a running program.
  const int used = open((folder.Path / cases[11].Name).c_str(), O_RDONLY);
  ASSERT_EQ(flock(used, LOCK_EX), 0);
  fs::create_symlink("name", folder.Path / (".wordflurn-a" + kDigits.substr(1)));

  std::set<String> named, expected;
  for (const String& path : LeftoversBeside(folder / "link")) named.insert(path);
  for (const TestFolder* where : {&folder, &spare}) {
    for (const auto& each : cases) {
      const bool counts = where == &folder || each.Name.starts_with("name.old-");
      EXPECT_EQ(fs::exists(where->Path / each.Name), !counts || each.After != Fate::Goes)
          << each.Name;
      if (counts && each.After == Fate::IsNamed) expected.insert(*where / each.Name);
    }
  }
  EXPECT_EQ(named, expected);
  EXPECT_EQ(folder.Get("name"), "text");
  EXPECT_TRUE(LeftoversBeside(folder / "missing/name").empty());
  close(used);
  SetSpareFolder({});
}

}  // namespace
