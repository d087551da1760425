// A whole run that is killed, or whose system calls fail, at any call.

#include "batch/batch_fixture.h"
#include "batch/undo_run.h"
#include "platform/system/posix/sys.h"

namespace {

namespace fs = std::filesystem;

constexpr int kKilled = 99;
const std::pair<const char*, const char*> kFiles[]{{"a.txt", "A\n"}, {"b.txt", "B\n"}};

struct FaultRun : BatchFixture {
  BatchOrder Order;

  FaultRun() {
    Files.Put("a.txt", "a\n");
    Files.Put("b.txt", "b\n");
    fs::create_hard_link(Files.Path / "b.txt", Files.Path / "hard");
    Order.Files = {Files / "a.txt", Files / "b.txt"};
    Order.Passes = {{{u"All Upper Case"}, {String(kToHtml)}}};
    Order.SuperFast = true;
  }
  std::string Old(const std::string& name) const { return name.substr(0, 1) + "\n"; }

  void UndoAndCompare() {
    BackupRing ring(Data / "");
    ring.FinishRotation();
    for (const BatchRun& run : ring.Runs())
      EXPECT_EQ(UndoRun(run.Folder, {}).Failures, std::vector<String>{});
    for (const auto& [name, changed] : kFiles) EXPECT_EQ(Files.Get(name), Old(name));
    EXPECT_EQ(fs::hard_link_count(Files.Path / "hard"), 2u);
    EXPECT_FALSE(fs::exists(Files.Path / "a.html") || fs::exists(Files.Path / "b.html"));
  }
};

TEST(AutoConvertFaults, AKillAtAnyCallIsUndoneAndNothingIsLeft) {
  int status = kKilled;
  for (int call = 1; status == kKilled; ++call) {
    SCOPED_TRACE(call);
    FaultRun run;
    status = InChild([&] {
      sys::OnCall = [left = call](const char*) mutable -> int {
        if (--left == 0) _exit(kKilled);
        return 0;
      };
      run.RunBatch(run.Order);
    });
    // One that has several names is written in place, with its old content beside it.
    EXPECT_TRUE(run.Files.Get("a.txt") == "a\n" || run.Files.Get("a.txt") == "A\n");
    run.UndoAndCompare();
    for (const std::string& name : run.Files.Names())
      EXPECT_FALSE(name.starts_with(".wordflurn-")) << name;
    if (testing::Test::HasFailure()) return;
  }
  EXPECT_EQ(status, 0);
}

// A file that is not told of as failed holds its new content when the run calls itself done.
TEST(AutoConvertFaults, NoFalseDone) {
  for (const bool once : {true, false}) {
    for (int call = 1;; ++call) {
      SCOPED_TRACE(call);
      FaultRun run;
      int calls = 0;
      sys::OnCall = [&](const char*) {
        return (once ? ++calls == call : ++calls >= call) ? EIO : 0;
      };
      BatchEnd end = BatchEnd::NotBegun;
      CodeOf([&] { end = run.RunBatch(run.Order); });
      sys::OnCall = nullptr;
      const int made = calls;
      const auto& failed = run.Batch.State.FailedFiles;
      if (end == BatchEnd::Done) {
        for (const auto& [name, changed] : kFiles)
          if (std::find(failed.begin(), failed.end(), run.Files / name) == failed.end()) {
            EXPECT_EQ(run.Files.Get(name), changed);
          }
      }
      run.UndoAndCompare();
      if (testing::Test::HasFailure()) return;
      if (made < call) break;
    }
  }
}

}  // namespace
