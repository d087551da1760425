#include "platform/system/work_folder.h"

#include <csignal>
#include <sys/stat.h>
#include <vector>

#include "platform/system/files.h"
#include "platform/system/posix/sys.h"
#include "platform/system/signals.h"
#include "platform/test_folder.h"

namespace {

namespace fs = std::filesystem;

bool IsKnown(StringView name) { return name == u"WFTEMP1.DAT" || name == u"WFTEMP2.DAT"; }

struct Folder : WorkFolder {
  explicit Folder(const String& dataFolder) : WorkFolder(dataFolder, IsKnown) {}
};

TEST(WorkFolder, IsOfOneProcessAndGoesWithIt) {
  const TestFolder folder;
  {
    const Folder first(folder / "new/data");
    const Folder second(folder / "new/data");
    EXPECT_NE(first.Path(), second.Path());
    for (const String& path : {first.Path(), second.Path()}) {
      EXPECT_EQ(FolderOf(path), folder / "new/data");
      EXPECT_EQ(fs::status(ToUtf8(path)).permissions(), fs::perms(0700));
      std::ofstream(fs::path(ToUtf8(path)) / "anything") << "text";
    }
    EXPECT_EQ(fs::status(folder.Path / "new").permissions(), fs::perms(0700));
  }
  EXPECT_TRUE(SubFolders(folder / "new/data").empty());
}

TEST(WorkFolder, OneProcessAtATimeHasTheLock) {
  const TestFolder folder;
  fs::create_directory(folder.Path / "data");
  fs::create_directory_symlink("data", folder.Path / "link");
  const Folder first(folder / "data");
  const Folder second(folder / "link");
  int changes = 0;
  const auto change = [&] { ++changes; };
  // The second time on a file system that locks no folders.
  for (const int error : {0, EBADF}) {
    bool isFirst = false, replaced = false;
    sys::OnCall = [&](const std::string& call) {
      if (call == "realpath") isFirst = true;
      if (call != "flock") return 0;
      if (std::exchange(isFirst, false)) return error;
      // Removed by somebody after it was opened.
      if (!std::exchange(replaced, true)) fs::remove(folder.Path / "data/WFLOCK");
      return 0;
    };
    changes = 0;
    {
      const DataLock lock = first.Lock();
      first.WhileLocked(change);
      EXPECT_EQ(CodeOf([&] { second.WhileLocked(change); }), kPermissionDenied);
      EXPECT_EQ(CodeOf([&] { DataLock other = second.Lock(); }), kPermissionDenied);
    }
    second.WhileLocked([&] { EXPECT_EQ(CodeOf([&] { first.Lock(); }), kPermissionDenied); });
    first.WhileLocked(change);
    EXPECT_EQ(changes, 2);
    sys::OnCall = nullptr;
  }
}

TEST(WorkFolder, AFileSystemWithoutLocksKeepsNobodyOut) {
  for (const int error : {ENOLCK, EOPNOTSUPP, ENOSYS, EINVAL}) {
    const TestFolder folder;
    sys::OnCall = [&](const char* call) { return call == std::string("flock") ? error : 0; };
    {
      const Folder first(folder / "");
      const Folder second(folder / "");
      EXPECT_NE(first.Path(), second.Path());
      const DataLock lock = first.Lock();
      second.WhileLocked([] {});
    }
    sys::OnCall = nullptr;
    EXPECT_TRUE(SubFolders(folder / "").empty()) << error;
  }
}

TEST(WorkFolder, AFailingCallIsToldOrOvercome) {
  int call = 0;
  for (int calls = 0; calls >= call;) {
    ++call;
    const TestFolder folder;
    const Folder second(folder / "");
    calls = 0;
    sys::OnCall = [&](const char*) { return ++calls == call ? EIO : 0; };
    try {
      const Folder first(folder / "");
      const DataLock lock = first.Lock();
      sys::OnCall = nullptr;
      EXPECT_TRUE(FolderExists(first.Path()));
      EXPECT_EQ(CodeOf([&] { second.WhileLocked([] {}); }), kPermissionDenied) << call;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Code, kDeviceIoError);
    }
    sys::OnCall = nullptr;
    EXPECT_EQ(folder.Names().size(), 1u) << call;
  }
  EXPECT_GT(call, 8);
}

TEST(WorkFolder, WhatDeadProcessesLeftGoesAndNothingElse) {
  const TestFolder folder;
  EXPECT_EQ(InChild([&] {
              const Folder killed(folder / "");
              std::ofstream(fs::path(ToUtf8(killed.Path())) / "WFTEMP1.DAT") << "text";
              _exit(9);
            }),
            9);
  ASSERT_EQ(folder.Names().size(), 1u);
  const auto make = [&](const std::string& name, int mode, const std::string& file) {
    fs::create_directory(folder.Path / name);
    if (!file.empty()) folder.Put(name + "/" + file, "text");
    fs::permissions(folder.Path / name, fs::perms(mode));
  };
  make("elsewhere", 0700, "WFTEMP1.DAT");
  fs::create_directory_symlink("elsewhere", folder.Path / "WFTEMP-1");
  make("WFTEMP-of mine", 0700, "");
  make("WFTEMP-2024-", 0700, "WFTEMP1.DAT");
  make("WFTEMP-2024-05-01", 0700, "WFTEMP1.DAT");
  make("WFTEMP-3", 0700, "chapter.txt");
  make("WFTEMP-4", 0755, "WFTEMP1.DAT");
  make("WFTEMP-5", 0700, "");
  fs::create_symlink("../elsewhere/WFTEMP1.DAT", folder.Path / "WFTEMP-5/WFTEMP1.DAT");
  folder.Put("WFTEMP-2", "a file");
  const Folder running(folder / "");
  std::set<std::string> kept = folder.Names();
  EXPECT_EQ(kept.size(), 10u);
  make("WFTEMP-6", 0700, "WFTEMP2.DAT");
  make("WFTEMP-6-1", 0700, "");
  folder.Put("WFTEMP1.DAT", "of an earlier version");
  { const Folder next(folder / ""); }
  EXPECT_EQ(folder.Names(), kept);
  EXPECT_EQ(folder.Get("elsewhere/WFTEMP1.DAT"), "text");
}

TEST(WorkFolder, TheLockGoesWithItsProcessAndNotToItsPrograms) {
  const TestFolder folder;
  EXPECT_EQ(InChild([&] {
              const Folder killed(folder / "");
              const DataLock lock = killed.Lock();
              if (fork() == 0) {
                execlp("sleep", "sleep", "5", nullptr);
                _exit(1);
              }
              // Until the program is started, its process has the lock as well.
              usleep(200'000);
              _exit(9);
            }),
            9);
  Folder(folder / "").WhileLocked([] {});
}

TEST(WorkFolder, AFolderCleanedUpBeforeItWasLockedIsMadeAgain) {
  const TestFolder folder;
  for (const bool replaced : {false, true}) {
    bool cleaned = false;
    sys::OnCall = [&](const char* call) {
      if (call != std::string("flock") || cleaned) return 0;
      for (const std::string& name : folder.Names()) {
        cleaned = true;
        // The name may be taken by another process at once.
        fs::rename(folder.Path / name, folder.Path / "gone");
        if (replaced) fs::create_directory(folder.Path / name);
      }
      return 0;
    };
    const Folder work(folder / "");
    sys::OnCall = nullptr;
    EXPECT_TRUE(cleaned);
    ASSERT_TRUE(FolderExists(work.Path()));
    EXPECT_TRUE(work.Path().ends_with(u"-1"));
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
        const Folder mine(folder / "");
        const std::string mark = ToUtf8(JoinPath(mine.Path(), u"WFTEMP1.DAT"));
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
  EXPECT_TRUE(folder.Names().empty());
}

TEST(WorkFolder, SaysWhatCantBeMadeOrWritten) {
  const TestFolder folder;
  folder.Put("file", "");
  for (const char* name : {"file/data", "file/deep/data", "file"}) try {
      Folder data(folder / name);
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
                  Folder data(folder / name);
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
