#include "batch/backup_ring.h"

#include "batch/ring_folder.h"
#include "platform/system/posix/sys.h"

namespace {

namespace fs = std::filesystem;

constexpr int kKilled = 99;

TEST(BackupRing, WhereANewRunGoes) {
  struct Case {
    const char* Name;
    // The runs by their places, as in "1a 2b".
    std::string Before;
    std::string After;
    std::string NewFolder;
  };
  const Case cases[]{
      {"the first run ever", "", "", "1"},
      {"the next one", "1a 2b", "1a 2b", "3"},
      {"a folder deleted by hand", "1a 2b 3c 5e 6f 7g 8h 9i 10j", "1a 2b 3c 5e 6f 7g 8h 9i 10j",
       "4"},
      {"a full ring", kFullRing, "1b 2c 3d 4e 5f 6g 7h 8i 9j", "10"},
      {"broken off before the first move", "0a 2b 3c 4d 5e 6f 7g 8h 9i 10j",
       "1b 2c 3d 4e 5f 6g 7h 8i 9j", "10"},
      {"broken off in the middle", "0a 1b 2c 3d 5e 6f 7g 8h 9i 10j", "1b 2c 3d 4e 5f 6g 7h 8i 9j",
       "10"},
      {"broken off before the new folder", "0a 1b 2c 3d 4e 5f 6g 7h 8i 9j",
       "1b 2c 3d 4e 5f 6g 7h 8i 9j", "10"},
      {"broken off behind the new folder", "0a 1b 2c 3d 4e 5f 6g 7h 8i 9j 10-",
       "1b 2c 3d 4e 5f 6g 7h 8i 9j", "10"},
      {"an oldest one left over by a run that went on", "0a 1b 2c 3d 4e 5f 6g 7h 8i 9j 10k",
       "1c 2d 3e 4f 5g 6h 7i 8j 9k", "10"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Name);
    const TestFolder data;
    PutRing(data, c.Before);
    const auto folder = BackupRing(data / "").Prepare();
    ASSERT_TRUE(folder);
    EXPECT_EQ(*folder, data / ("MFF-Backups/" + c.NewFolder));
    EXPECT_TRUE(fs::is_empty(ToUtf8(*folder)));
    EXPECT_EQ(fs::status(ToUtf8(*folder)).permissions(), fs::perms::owner_all);
    fs::remove(ToUtf8(*folder));
    EXPECT_EQ(RingOf(data), c.After);
  }
}

TEST(BackupRing, PausesAndCancel) {
  struct Case {
    const char* Before;
    int CancelAt;  // which of the questions; 0 is never
    int Pauses;
    std::string After;
  };
  const Case cases[]{
      {kFullRing, 0, 9 * 150 + 400, "1b 2c 3d 4e 5f 6g 7h 8i 9j 10-"},
      {kFullRing, 1, 9 * 150, "0a 1b 2c 3d 4e 5f 6g 7h 8i 9j"},
      {kFullRing, 2, 9 * 150 + 400, "1b 2c 3d 4e 5f 6g 7h 8i 9j 10-"},
      // Nothing to delete.
      {"1- 2b 3c 4d 5e 6f 7g 8h 9i 10j", 0, 9 * 150, "1b 2c 3d 4e 5f 6g 7h 8i 9j 10-"},
      {"1a", 1, 0, "1a 2-"},
  };
  for (const Case& c : cases) {
    const TestFolder data;
    PutRing(data, c.Before);
    int pauses = 0, questions = 0;
    const auto folder =
        BackupRing(data / "").Prepare({[&](int milliseconds) { pauses += milliseconds; },
                                       [&] { return ++questions == c.CancelAt; }});
    EXPECT_EQ(folder.has_value(), c.CancelAt == 0);
    EXPECT_EQ(pauses, c.Pauses) << c.Before;
    EXPECT_EQ(RingOf(data), c.After);
  }
}

TEST(BackupRing, WhatIsNoFolderStopsTheRunAndStays) {
  for (const char* place : {"MFF-Backups", "MFF-Backups/1", "MFF-Backups/10"}) {
    for (const bool linked : {false, true}) {
      const TestFolder data;
      fs::create_directory(data.Path / "mine");
      std::ofstream(data.Path / "mine/text") << "mine";
      const bool isRoot = std::string(place) == "MFF-Backups";
      if (!isRoot) PutRing(data, kFullRing);
      fs::remove_all(data.Path / place);
      if (linked)
        fs::create_directory_symlink(data.Path / "mine", data.Path / place);
      else
        data.Put(place, "mine");
      BackupRing ring(data / "");
      // A ring that is kept elsewhere is one.
      const bool works = isRoot && linked;
      EXPECT_EQ(CodeOf([&] { ring.Prepare(); }), works ? 0 : kPathFileAccess) << place;
      EXPECT_EQ(fs::exists(data.Path / "mine/1"), works);
      EXPECT_EQ(data.Get("mine/text"), "mine");
      ring.Runs();
    }
  }
}

// The runs in the order of the ring, the leaving one first.
std::string Order(const TestFolder& data) {
  std::string order;
  for (const char c : RingOf(data))
    if (c >= 'a') order += c;
  return order;
}

TEST(BackupRing, ARotationMayBeKilledAtAnyCall) {
  int status = kKilled;
  int call = 0;
  while (status == kKilled) {
    ++call;
    const TestFolder data(kMemory);
    PutRing(data, kFullRing);
    status = InChild([&] {
      int calls = 0;
      sys::OnCall = [&](const char*) -> int {
        if (++calls == call) _exit(kKilled);
        return 0;
      };
      BackupRing(data / "").Prepare();
    });
    BackupRing ring(data / "");
    EXPECT_TRUE(Order(data).ends_with("bcdefghij")) << call;
    // A listing finishes it, or the next run does.
    if (call % 2 == 0) {
      ring.FinishRotation();
      EXPECT_GE(ring.Runs().size(), 9u) << call;
    }
    if (status == kKilled) ring.Prepare();
    EXPECT_EQ(RingOf(data), "1b 2c 3d 4e 5f 6g 7h 8i 9j 10-") << call;
  }
  EXPECT_EQ(status, 0);
  EXPECT_GT(call, 40);
}

TEST(BackupRing, AFailureOfAnyCallCostsNoRunBeforeTheNewOne) {
  for (const bool once : {true, false}) {
    for (const int error : {ENOSPC, EIO, EACCES}) {
      for (int call = 1;; ++call) {
        const TestFolder data(kMemory);
        PutRing(data, kFullRing);
        int calls = 0;
        bool removing = false;
        sys::OnCall = [&](const char* name) {
          const bool fails = once ? ++calls == call : ++calls >= call;
          if (std::string_view(name) == "rmdir" && !fails) removing = true;
          return fails ? error : 0;
        };
        BackupRing ring(data / "");
        const int code = CodeOf([&] { ring.Prepare(); });
        sys::OnCall = nullptr;
        if (calls < call) break;
        EXPECT_TRUE(Order(data).ends_with("bcdefghij")) << call;
        if (code == 0) continue;
        EXPECT_EQ(CodeOf([&] { ring.Prepare(); }), 0) << call;
        EXPECT_TRUE(Order(data).ends_with("bcdefghij") || removing) << call << RingOf(data);
      }
    }
  }
}

}  // namespace
