#include "platform/system/safe_save.h"

#include <algorithm>
#include <csignal>
#include <sys/stat.h>
#include <tuple>

#include "platform/system/files.h"
#include "platform/system/posix/sys.h"
#include "platform/system/signals.h"
#include "platform/test_folder.h"

namespace {

namespace fs = std::filesystem;

const std::string kOld(70'000, 'o');
// Longer, and handed over in blocks, so that there is a moment with half of it written.
const std::string kBlock(30'000, 'n');
const std::string kNew = kBlock + kBlock + kBlock;
constexpr int kKilled = 99;

void ProduceNew(const ByteSink& sink) {
  for (int block = 0; block < 3; ++block) sink(kBlock);
}

void ReplaceByNew(const String& path) {
  SafeReplace(path, [](OutputFile file) { ProduceNew([&](auto bytes) { file.Write(bytes); }); });
}

// The ways that a save can take. The text is saved to "name" in the folder.
struct Way {
  const char* Name;
  std::function<void(const TestFolder&)> Prepare;
  bool HasOld = true;
  std::function<void(const String&)> Save = [](const String& path) { SafeSave(path, ProduceNew); };
};

const Way kWays[]{
    {"new file", [](const TestFolder&) {}, false},
    {"rename", [](const TestFolder& folder) { folder.Put("name", kOld); }},
    {"behind links",
     [](const TestFolder& folder) {
       fs::create_directory(folder.Path / "sub");
       folder.Put("sub/real", kOld);
       fs::create_symlink("sub/real", folder.Path / "link");
       fs::create_symlink("link", folder.Path / "name");
     }},
    {"in place",
     [](const TestFolder& folder) {
       folder.Put("name", kOld);
       fs::create_hard_link(folder.Path / "name", folder.Path / "second");
     }},
    {"in place when the rename is refused",
     [](const TestFolder& folder) {
       folder.Put("name", kOld);
       // The hook of the tests below stands for a mount point.
       folder.Put("busy", "");
     }},
    {"into an open file", [](const TestFolder& folder) { folder.Put("name", kOld); }, true,
     ReplaceByNew},
    {"of another owner and mode",
     [](const TestFolder& folder) {
       folder.Put("name", kOld);
       fs::permissions(folder.Path / "name", fs::perms(0604));
       const uid_t other = geteuid() == 0 ? 65533 : geteuid();
       EXPECT_EQ(chown((folder.Path / "name").c_str(), other, other), 0);
     }},
    {"in place from an open file",
     [](const TestFolder& folder) {
       folder.Put("name", kOld);
       fs::create_hard_link(folder.Path / "name", folder.Path / "second");
     },
     true, ReplaceByNew},
};

// Counts the calls and lets something happen at one of them; a rename onto a busy file is refused.
struct Hook {
  Hook(bool busy, int call, std::function<int(const char*)> act) {
    sys::OnCall = [this, busy, call, act](const char* name) -> int {
      if (++Calls == call) Struck = Before == "dup" ? "last close" : name;
      Before = name;
      if (Calls >= call)
        if (const int error = act(name)) return error;
      if (std::string_view(name) == "rename") {
        if (busy) return EBUSY;
        Renamed = true;
      }
      return 0;
    };
  }
  Hook(const Hook&) = delete;
  Hook& operator=(const Hook&) = delete;
  ~Hook() { sys::OnCall = nullptr; }
  int Calls = 0;
  std::string Struck, Before;
  bool Renamed = false;
};

std::set<std::string> Contents(const TestFolder& folder) {
  std::set<std::string> contents;
  for (const std::string& name : folder.Names())
    if (fs::is_regular_file(folder.Path / name)) contents.insert(folder.Get(name));
  return contents;
}

std::tuple<uid_t, gid_t, mode_t> OwnerAndMode(const TestFolder& folder) {
  struct stat status {};
  stat((folder.Path / "name").c_str(), &status);
  return {status.st_uid, status.st_gid, status.st_mode};
}

class SafeSaveWays : public ::testing::TestWithParam<Way> {
 protected:
  bool Busy(const TestFolder& folder) const { return fs::exists(folder.Path / "busy"); }
};

TEST_P(SafeSaveWays, AProcessThatEndsAtAnyCallLosesNothing) {
  int status = kKilled;
  int call = 0;
  while (status == kKilled) {
    ++call;
    const TestFolder folder(kMemory);
    GetParam().Prepare(folder);
    status = InChild([&] {
      const Hook hook(Busy(folder), call, [](const char*) -> int { _exit(kKilled); });
      GetParam().Save(folder / "name");
    });
    const std::string now = folder.Get("name");
    const bool oldIsThere =
        GetParam().HasOld ? Contents(folder).contains(kOld) : !fs::exists(folder.Path / "name");
    EXPECT_TRUE(now == kNew || now == kOld || oldIsThere) << call;
    EXPECT_TRUE(now == kNew || status != 0);
  }
  EXPECT_EQ(status, 0);
  EXPECT_GT(call, 8);
}

TEST_P(SafeSaveWays, ASignalAtAnyCallLeavesOneContentAndNothingBeside) {
  constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};
  int call = 0;
  for (bool struck = true; struck;) {
    ++call;
    const TestFolder folder(kMemory);
    GetParam().Prepare(folder);
    auto names = folder.Names();
    const pid_t child = fork();
    if (child == 0) {
      PrepareProcess();
      bool done = false;
      const Hook hook(Busy(folder), call, [&](const char*) {
        return std::exchange(done, true) ? 0 : std::raise(kSignals[call % 3]);
      });
      GetParam().Save(folder / "name");
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    struck = WIFSIGNALED(status);
    EXPECT_TRUE(!struck || WTERMSIG(status) == kSignals[call % 3]);
    const std::string now = folder.Get("name");
    EXPECT_TRUE(now == kNew || (struck && now == (GetParam().HasOld ? kOld : ""))) << call;
    if (now == kNew) names.insert("name");
    EXPECT_EQ(folder.Names(), names) << call;
  }
  EXPECT_GT(call, 8);
}

TEST_P(SafeSaveWays, AFailureOfAnyCallLeavesTheOldContent) {
  for (const int error : {ENOSPC, EIO, EINTR}) {
    for (int call = 1;; ++call) {
      const TestFolder folder(kMemory);
      GetParam().Prepare(folder);
      const auto names = folder.Names();
      const auto before = OwnerAndMode(folder);
      bool done = false;
      Hook hook(Busy(folder), call,
                [&](const char*) { return std::exchange(done, true) ? 0 : error; });
      const int code = CodeOf([&] { GetParam().Save(folder / "name"); });
      if (hook.Struck.empty()) break;
      SCOPED_TRACE(hook.Struck + " " + std::to_string(call) + " errno " + std::to_string(error));

      EXPECT_TRUE(code == 0 || (code == CodeFromErrno(error) && error != EINTR));
      // These can't be overcome, nor be passed over.
      constexpr std::string_view kFatal[] = {"write", "ftruncate", "fsync", "dup", "last close"};
      if (error != EINTR) {
        EXPECT_TRUE(code != 0 || std::ranges::find(kFatal, hook.Struck) == std::end(kFatal));
      }
      const bool isNew = code == 0 || hook.Renamed;
      EXPECT_EQ(folder.Get("name"), isNew ? kNew : GetParam().HasOld ? kOld : "");
      EXPECT_TRUE(!GetParam().HasOld || OwnerAndMode(folder) == before);
      auto expected = names;
      if (isNew) expected.insert("name");
      EXPECT_TRUE(folder.Names() == expected || hook.Struck == "unlink");
    }
  }
}

TEST_P(SafeSaveWays, WhenNothingCanBePutBackTheErrorNamesTheCopy) {
  bool named = false;
  for (int call = 1;; ++call) {
    const TestFolder folder(kMemory);
    GetParam().Prepare(folder);
    const auto names = folder.Names();
    Hook hook(Busy(folder), call,
              [](const char* name) { return std::string_view(name) == "unlink" ? 0 : EIO; });
    std::string message;
    try {
      GetParam().Save(folder / "name");
    } catch (const RuntimeError& error) {
      message = error.what();
    }
    if (hook.Struck.empty()) break;
    SCOPED_TRACE(hook.Struck + " " + std::to_string(call) + " " + message);
    const std::string now = folder.Get("name");
    const bool whole = now == kNew || now == (GetParam().HasOld ? kOld : "");
    std::set<std::string> expected = names;
    if (now == kNew) expected.insert("name");
    for (const std::string& name : folder.Names()) {
      if (expected.contains(name)) continue;
      named = true;
      EXPECT_EQ(folder.Get(name), kOld);
      EXPECT_NE(message.find(name), std::string::npos);
    }
    EXPECT_TRUE(whole || Contents(folder).contains(kOld));
  }
  EXPECT_EQ(named, std::string_view(GetParam().Name).starts_with("in place"));
}

// What is on the disk at each moment depends on the order of flushes, which no other test can see.
TEST(SafeSave, FlushesBeforeItRelies) {
  const std::set<std::string> watched{"write", "ftruncate", "fsync", "rename", "unlink"};
  const std::pair<const Way&, std::string> cases[]{
      {kWays[1], " write fsync rename fsync"},
      {kWays[3], " write fsync fsync write ftruncate fsync unlink"}};
  for (const auto& [way, order] : cases) {
    const TestFolder folder;
    way.Prepare(folder);
    std::string calls;
    sys::OnCall = [&](const char* name) {
      if (watched.contains(name) && !(calls.ends_with("write") && name == std::string("write")))
        calls.append(" ").append(name);
      return 0;
    };
    SafeSave(folder / "name", ProduceNew);
    sys::OnCall = nullptr;
    EXPECT_EQ(calls, order);
  }
}

INSTANTIATE_TEST_SUITE_P(All, SafeSaveWays, ::testing::ValuesIn(kWays),
                         [](const auto& each) { return "Way" + std::to_string(each.index); });

}  // namespace
