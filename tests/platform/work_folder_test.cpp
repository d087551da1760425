#include "platform/system/work_folder.h"

#include <sys/stat.h>
#include <vector>

#include "platform/system/files.h"
#include "platform/system/posix/sys.h"
#include "platform/test_folder.h"

namespace {

namespace fs = std::filesystem;

TEST(WorkFolder, TheSecondProcessWorksApart) {
  const TestFolder folder;
  const WorkFolder first(folder / "new/data");
  EXPECT_TRUE(first.HoldsLock());
  EXPECT_EQ(first.Path(), folder / "new/data");
  EXPECT_EQ(fs::status(folder.Path / "new").permissions(), fs::perms(0700));
  String apart;
  {
    const WorkFolder second(folder / "new/data");
    apart = second.Path();
    EXPECT_FALSE(second.HoldsLock());
    EXPECT_TRUE(FileNameOf(apart).starts_with(u"WFTEMP-"));
    EXPECT_EQ(fs::status(ToUtf8(apart)).permissions(), fs::perms(0700));
    const WorkFolder third(folder / "new/data");
    EXPECT_NE(third.Path(), apart);
    // A start removes stale folders; those in use stay.
    EXPECT_TRUE(FolderExists(apart));
    std::ofstream(fs::path(ToUtf8(apart)) / "WFTEMP1.DAT") << "text";
  }
  EXPECT_FALSE(FolderExists(apart));
}

TEST(WorkFolder, OneProcessAtATimeChangesDataFiles) {
  const TestFolder folder;
  auto first = std::make_unique<WorkFolder>(folder / "");
  const WorkFolder second(folder / "");
  int changes = 0;
  const auto change = [&] { ++changes; };
  first->WhileLocked(change);
  EXPECT_THROW(second.WhileLocked(change), RuntimeError);
  EXPECT_EQ(changes, 1);
  first.reset();
  second.WhileLocked([&] {
    const WorkFolder third(folder / "");
    EXPECT_FALSE(third.HoldsLock());
    EXPECT_THROW(third.WhileLocked(change), RuntimeError);
    change();
  });
  EXPECT_EQ(changes, 2);
  EXPECT_TRUE(WorkFolder(folder / "").HoldsLock()) << "the lock is free again";
}

TEST(WorkFolder, StaleFoldersGoAndNothingElse) {
  const TestFolder folder;
  const WorkFolder first(folder / "");
  EXPECT_EQ(InChild([&] {
              const WorkFolder killed(folder / "");
              std::ofstream(fs::path(ToUtf8(killed.Path())) / "WFTEMP1.DAT") << "text";
              _exit(9);
            }),
            9);
  fs::create_directories(folder.Path / "elsewhere");
  folder.Put("elsewhere/kept", "text");
  fs::create_directory_symlink("elsewhere", folder.Path / "WFTEMP-1");
  fs::create_directory(folder.Path / "WFTEMP-of mine");
  folder.Put("WFTEMP-2", "a file");
  EXPECT_EQ(folder.Names().size(), 6u);
  { const WorkFolder next(folder / ""); }
  EXPECT_EQ(folder.Names(), (std::set<std::string>{"WFLOCK", "WFTEMP-1", "WFTEMP-2",
                                                   "WFTEMP-of mine", "elsewhere"}));
  EXPECT_EQ(folder.Get("elsewhere/kept"), "text");
}

TEST(WorkFolder, TheLockGoesWithItsProcessAndNotToItsPrograms) {
  const TestFolder folder;
  EXPECT_EQ(InChild([&] {
              const WorkFolder killed(folder / "");
              if (fork() == 0) {
                execlp("sleep", "sleep", "5", nullptr);
                _exit(1);
              }
              // Until the program is started, its process has the lock as well.
              usleep(200'000);
              _exit(9);
            }),
            9);
  EXPECT_TRUE(WorkFolder(folder / "").HoldsLock());
}

TEST(WorkFolder, AFolderCleanedUpBeforeItWasLockedIsMadeAgain) {
  const TestFolder folder;
  const WorkFolder first(folder / "");
  for (const bool replaced : {false, true}) {
    bool cleaned = false;
    sys::OnCall = [&](const char* call) {
      if (call != std::string("flock") || cleaned) return 0;
      for (const std::string& name : folder.Names()) {
        if (!name.starts_with("WFTEMP-")) continue;
        cleaned = true;
        // The name may be taken by another process at once.
        fs::rename(folder.Path / name, folder.Path / "gone");
        if (replaced) fs::create_directory(folder.Path / name);
      }
      return 0;
    };
    const WorkFolder second(folder / "");
    sys::OnCall = nullptr;
    EXPECT_TRUE(cleaned);
    ASSERT_TRUE(FolderExists(second.Path()));
    EXPECT_TRUE(second.Path().ends_with(u"-1"));
    fs::remove_all(folder.Path / "gone");
  }
}

// Each process starts, checks that its folder is its own, and ends, while others clean up.
TEST(WorkFolder, ManyProcessesNeverShareAFolder) {
  const TestFolder folder;
  std::vector<pid_t> children;
  for (int child = 0; child < 6; ++child) {
    children.push_back(fork());
    if (children.back() != 0) continue;
    int status = 0;
    try {
      for (int round = 0; round < 60 && status == 0; ++round) {
        const WorkFolder mine(folder / "");
        const std::string mark = ToUtf8(JoinPath(mine.Path(), u"mark"));
        // Fails when another process has made it already, or when the folder has gone.
        if (FILE* file = fopen(mark.c_str(), "wx"))
          fclose(file);
        else
          status = 2;
        usleep(500);
        if (unlink(mark.c_str()) < 0) status = 3;
      }
    } catch (const std::exception&) {
      status = 4;
    }
    _exit(status);
  }
  for (const pid_t child : children) {
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0) << WEXITSTATUS(status);
  }
  EXPECT_EQ(folder.Names(), std::set<std::string>{"WFLOCK"});
}

TEST(WorkFolder, WithoutALockToBeHadEachWorksApart) {
  for (const int error : {ENOLCK, EOPNOTSUPP, ENOSYS, EINVAL}) {
    const TestFolder folder;
    sys::OnCall = [&](const char* call) { return call == std::string("flock") ? error : 0; };
    {
      const WorkFolder first(folder / "");
      const WorkFolder second(folder / "");
      EXPECT_FALSE(first.HoldsLock());
      EXPECT_NE(first.Path(), second.Path());
      EXPECT_TRUE(FolderExists(first.Path()));
      EXPECT_TRUE(FolderExists(second.Path()));
    }
    sys::OnCall = nullptr;
    EXPECT_EQ(folder.Names(), std::set<std::string>{"WFLOCK"}) << error;
  }
}

TEST(WorkFolder, AnotherThingInPlaceOfTheLockIsNoneToWaitFor) {
  const std::function<void(const char*)> things[]{
      [](const char* path) { ASSERT_EQ(mkfifo(path, 0600), 0); },
      [](const char* path) { fs::create_directory(path); },
      [](const char* path) { fs::create_symlink("nowhere", path); }};
  for (const auto& make : things) {
    const TestFolder folder;
    make((folder.Path / "WFLOCK").c_str());
    const WorkFolder apart(folder / "");
    EXPECT_FALSE(apart.HoldsLock());
    EXPECT_TRUE(FileNameOf(apart.Path()).starts_with(u"WFTEMP-"));
  }
}

TEST(WorkFolder, SaysWhatCantBeMadeOrWritten) {
  const TestFolder folder;
  folder.Put("file", "");
  for (const char* name : {"file/data", "file/deep/data", "file"}) try {
      WorkFolder data(folder / name);
      ADD_FAILURE();
    } catch (const RuntimeError& error) {
      const std::string text = error.what();
      EXPECT_EQ(text.find("The data folder " + ToUtf8(folder / name) + " can't be"), 0u) << text;
      EXPECT_NE(text.find("WORDFLURN_HOME"), std::string::npos);
      EXPECT_NE(text.find("Not a directory"), std::string::npos) << text;
    }
  if (getuid() != 0) GTEST_SKIP() << "needs root to become somebody else";
  fs::permissions(folder.Path, fs::perms(0755));
  EXPECT_EQ(InChild([&] {
              ASSERT_EQ(seteuid(65534), 0);
              for (const char* name : {"", "new"}) try {
                  WorkFolder data(folder / name);
                  ADD_FAILURE();
                } catch (const RuntimeError& error) {
                  EXPECT_EQ(error.Code, kPermissionDenied);
                  EXPECT_NE(std::string(error.what()).find(folder.Path.native()),
                            std::string::npos);
                }
            }),
            0);
}

}  // namespace
