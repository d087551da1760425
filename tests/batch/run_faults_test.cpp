// A run and its undo that are killed, or whose system calls fail, at any point.

#include "batch/backup_ring.h"
#include "batch/ring_folder.h"
#include "batch/run_backups.h"
#include "batch/undo_run.h"
#include "platform/system/files.h"
#include "platform/system/posix/sys.h"
#include "platform/system/safe_save.h"

namespace {

namespace fs = std::filesystem;

constexpr int kKilled = 99;
using Names = std::vector<std::string>;

const Names kFew{"a", "link", "b", "new.html"};
// More than are undone one by one.
const Names kMany{"a", "link", "b", "new.html", "c", "d", "e", "f", "g", "h", "i"};
// Of the many calls on many files not all are needed.
int Stride(const Names& files) { return files.size() > kFew.size() ? 13 : 1; }

std::string OldOf(const std::string& name) { return "old " + std::string(name) + "\n"; }
std::string NewOf(const std::string& name) { return "longer new content of " + name + "\n"; }

void PutFiles(const TestFolder& folder) {
  fs::create_directory(folder.Path / "data");
  for (const std::string& name : kMany)
    if (name != "link" && name != "new.html") folder.Put(name, OldOf(name));
  fs::create_symlink("a", folder.Path / "link");
  fs::create_hard_link(folder.Path / "b", folder.Path / "hard");
}

// As the driver does it: a file that can't be recorded is not written.
void WorkOnFiles(const TestFolder& folder, const Names& files) {
  RunBackups backups(BackupRing(folder / "data").Prepare().value(), MakeRunHead(0, u"A run"));
  for (const std::string& name : files) {
    const String path = folder / name;
    try {
      if (FileExists(path))
        backups.BackUp(path);
      else
        backups.RecordTarget(path);
      backups.Flush();
      SafeSave(path, [&](const ByteSink& sink) { sink(NewOf(name)); });
    } catch (const RuntimeError&) {
    }
    backups.NoteLeft(path);
  }
  backups.Close();
}

UndoOutcome Undo(const TestFolder& folder) {
  BackupRing ring(folder / "data");
  ring.FinishRotation();
  const auto runs = ring.Runs();
  return runs.empty() ? UndoOutcome() : UndoRun(runs.back().Folder, {});
}

void ExpectOldFiles(const TestFolder& folder) {
  for (const std::string& name : kMany)
    EXPECT_TRUE(name == "link" || name == "new.html" || folder.Get(name) == OldOf(name)) << name;
  EXPECT_EQ(folder.Get("hard"), OldOf("b"));
  EXPECT_TRUE(fs::is_symlink(folder.Path / "link"));
  EXPECT_FALSE(fs::exists(folder.Path / "new.html"));
}

// Dies at the given call, the first one being 1.
void KillAt(int call) {
  sys::OnCall = [call, calls = 0](const char*) mutable -> int {
    if (++calls == call) _exit(kKilled);
    return 0;
  };
}

TEST(RunFaults, AKillAtAnyCallOfARunIsUndone) {
  int status = kKilled;
  int call = 0;
  while (status == kKilled) {
    SCOPED_TRACE(++call);
    const TestFolder folder(kMemory);
    PutFiles(folder);
    status = InChild([&] {
      KillAt(call);
      WorkOnFiles(folder, kFew);
    });
    const std::string a = folder.Get("a");
    EXPECT_TRUE(a == OldOf("a") || a == NewOf("a") || a == NewOf("link")) << a;
    EXPECT_EQ(Undo(folder).Failures, std::vector<String>{});
    ExpectOldFiles(folder);
    if (HasFailure()) return;
  }
  EXPECT_EQ(status, 0);
  EXPECT_GT(call, 100);
}

TEST(RunFaults, AKillAtAnyCallOfAnUndoIsMadeGoodByTheNextOne) {
  for (const Names& files : {kFew, kMany}) {
    int status = kKilled;
    for (int call = 1; status == kKilled; call += Stride(files)) {
      SCOPED_TRACE(call);
      const TestFolder folder(kMemory);
      PutFiles(folder);
      WorkOnFiles(folder, files);
      EXPECT_EQ(folder.Get("hard"), NewOf("b"));
      status = InChild([&] {
        KillAt(call);
        Undo(folder);
      });
      EXPECT_EQ(Undo(folder).Failures, std::vector<String>{});
      ExpectOldFiles(folder);
      if (HasFailure()) return;
    }
    EXPECT_EQ(status, 0);
  }
}

TEST(RunFaults, NoFileIsChangedThatUndoDoesNotBringBack) {
  for (const bool once : {true, false}) {
    for (const int error : {ENOSPC, EIO, EACCES}) {
      for (int call = 1;; ++call) {
        SCOPED_TRACE(call);
        const TestFolder folder(kMemory);
        PutFiles(folder);
        int calls = 0;
        sys::OnCall = [&](const char*) {
          return (once ? ++calls == call : ++calls >= call) ? error : 0;
        };
        CodeOf([&] { WorkOnFiles(folder, kFew); });
        const int made = calls;
        sys::OnCall = nullptr;
        EXPECT_EQ(Undo(folder).Failures, std::vector<String>{});
        ExpectOldFiles(folder);
        if (HasFailure()) return;
        if (made < call) break;
      }
    }
  }
}

TEST(RunFaults, AnUndoThatFailsSaysSoAndCanBeRepeated) {
  for (const Names& files : {kFew, kMany}) {
    for (const int error : {ENOSPC, EIO, EACCES}) {
      for (int call = 1;; call += Stride(files)) {
        SCOPED_TRACE(call);
        const TestFolder folder(kMemory);
        PutFiles(folder);
        WorkOnFiles(folder, files);
        int calls = 0;
        bool failed = false;
        sys::OnCall = [&](const char*) { return ++calls == call ? error : 0; };
        try {
          const UndoOutcome outcome = Undo(folder);
          failed = !outcome.Failures.empty() || outcome.Restored + outcome.Removed == 0;
        } catch (const RuntimeError&) {
          failed = true;
        }
        sys::OnCall = nullptr;
        if (!failed) ExpectOldFiles(folder);
        Undo(folder);
        ExpectOldFiles(folder);
        if (HasFailure()) return;
        if (calls < call) break;
      }
    }
  }
}

}  // namespace
