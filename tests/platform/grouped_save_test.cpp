#include "platform/system/grouped_save.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/system/files.h"
#include "platform/system/posix/sys.h"
#include "platform/test_folder.h"

namespace {

namespace fs = std::filesystem;

constexpr int kKilled = 99;
const std::string kOld(5000, 'o'), kNew(9000, 'n');

// The targets of a group: in a folder with one of each kind.
const char* const kTargets[] = {"plain", "link", "linked", "made", "busy"};

void Prepare(const TestFolder& folder) {
  for (const char* name : {"plain", "real", "linked", "busy"}) folder.Put(name, kOld);
  fs::permissions(folder.Path / "plain", fs::perms(0640));
  fs::last_write_time(folder.Path / "plain",
                      fs::file_time_type::clock::now() - std::chrono::hours(5));
  fs::create_symlink("real", folder.Path / "link");
  fs::create_hard_link(folder.Path / "linked", folder.Path / "second name");
  fs::create_directory(folder.Path / "backups");
}

// Saves them all. Returns those that were committed.
std::set<std::string> SaveAll(const TestFolder& folder) {
  std::set<std::string> done;
  GroupedSave group;
  std::map<std::string, std::size_t> numbers;
  for (const std::string target : kTargets) try {
      const std::size_t number = group.Add(folder / target);
      OutputFile content = group.Content(number);
      content.Write(kNew);
      content.Close();
      if (target == "made" || group.BackUp(number, folder / ("backups/" + target)))
        numbers[target] = number;
    } catch (const RuntimeError&) {
    }
  group.Flush();
  for (const auto& [target, number] : numbers) try {
      group.Commit(number);
      done.insert(target);
    } catch (const RuntimeError&) {
    }
  group.Flush();
  return done;
}

// The n-th call fails or ends the process; the first target to be renamed, right after a look at
// it, is a mount point.
struct Hook {
  Hook(int call, std::function<int()> act) {
    sys::OnCall = [this, call, act, before = std::string(), busy = true](const char* name) mutable {
      const bool isCommit = name == std::string("rename") && before == "lstat";
      before = name;
      if (++Calls == call) return act();
      return isCommit && std::exchange(busy, false) ? EBUSY : 0;
    };
  }
  Hook(const Hook&) = delete;
  ~Hook() { sys::OnCall = nullptr; }
  int Calls = 0;
};

// No target is anything but old or new, and none is new without its backup.
void ExpectWhole(const TestFolder& folder, const std::set<std::string>& committed) {
  for (const std::string target : kTargets) {
    const std::string now = folder.Get(target);
    EXPECT_TRUE(now == kNew || now == (target == "made" ? "" : kOld)) << target;
    EXPECT_TRUE(now == kNew || !committed.contains(target)) << target;
    EXPECT_TRUE(now != kNew || target == "made" || folder.Get("backups/" + target) == kOld)
        << target;
  }
}

TEST(GroupedSave, SavesAsASingleSaveDoesAndKeepsBackups) {
  const TestFolder folder;
  Prepare(folder);
  const auto time = fs::last_write_time(folder.Path / "plain");
  const auto names = folder.Names();
  {
    const Hook hook(-1, [] { return 0; });
    EXPECT_EQ(SaveAll(folder).size(), std::size(kTargets));
  }
  ExpectWhole(folder, {std::begin(kTargets), std::end(kTargets)});
  EXPECT_EQ(folder.Get("real"), kNew);
  EXPECT_EQ(folder.Get("second name"), kNew);
  EXPECT_TRUE(fs::is_symlink(folder.Path / "link"));
  for (const char* name : {"plain", "backups/plain"})
    EXPECT_EQ(fs::status(folder.Path / name).permissions(), fs::perms(0640));
  EXPECT_EQ(fs::last_write_time(folder.Path / "backups/plain"), time);
  auto expected = names;
  expected.insert("made");
  EXPECT_EQ(folder.Names(), expected);
}

TEST(GroupedSave, AFailureOrAnEndAtAnyCallLosesNothing) {
  for (const int error : {EIO, kKilled}) {
    int call = 1;
    for (bool struck = true; struck; ++call) {
      SCOPED_TRACE(std::to_string(error) + " at " + std::to_string(call));
      const TestFolder folder(kMemory);
      Prepare(folder);
      const auto names = folder.Names();
      const int status = InChild([&] {
        std::set<std::string> done;
        const Hook hook(call, [&] { return error == kKilled ? (_exit(kKilled), 0) : error; });
        try {
          done = SaveAll(folder);
        } catch (const RuntimeError&) {
        }
        ExpectWhole(folder, done);
        // Backups are no second names of their files.
        for (const auto& backup : fs::directory_iterator(folder.Path / "backups"))
          EXPECT_EQ(fs::hard_link_count(backup), 1u);
        if (hook.Calls < call) _exit(7);
      });
      ExpectWhole(folder, {});
      EXPECT_TRUE(status == 0 || status == 7 || status == kKilled) << status;
      struck = status != 7;
    }
    EXPECT_GT(call, 80);
  }
}

TEST(GroupedSave, AFlushThatFailsIsTold) {
  const TestFolder folder;
  GroupedSave group;
  group.Content(group.Add(folder / "new")).Write(kNew);
  sys::OnCall = [](const char* call) { return call == std::string("syncfs") ? EIO : 0; };
  EXPECT_EQ(CodeOf([&] { group.Flush(); }), kDeviceIoError);
  sys::OnCall = nullptr;
  EXPECT_EQ(CodeOf([&] { group.Commit(0); }), kInvalidCall);
}

TEST(GroupedSave, LeavesWhatIsDroppedOrChangedAndNeverFollowsABackupsName) {
  const TestFolder folder;
  Prepare(folder);
  folder.Put("replaced", kOld);
  fs::create_symlink("nowhere", folder.Path / "backups/taken");
  const std::string other(kOld.size(), 'p');
  {
    GroupedSave group;
    std::vector<std::size_t> numbers;
    for (const std::string target : {"plain", "real", "busy", "replaced"}) {
      numbers.push_back(group.Add(folder / target));
      group.Content(numbers.back()).Write(kNew);
      EXPECT_FALSE(group.BackUp(numbers.back(), folder / "backups/taken"));
      EXPECT_TRUE(group.BackUp(numbers.back(), folder / ("backups/" + target)));
      EXPECT_EQ(CodeOf([&] { group.Commit(numbers.back()); }), kInvalidCall) << "not flushed";
    }
    // What shows when the first file is closed is of that file alone.
    sys::OnCall = [failed = false](const char* call) mutable {
      return call == std::string("dup") && !std::exchange(failed, true) ? EIO : 0;
    };
    group.Flush();
    sys::OnCall = nullptr;
    EXPECT_EQ(CodeOf([&] { group.Commit(numbers[0]); }), kDeviceIoError);
    folder.Put("real", other);
    EXPECT_EQ(CodeOf([&] { group.Commit(numbers[1]); }), kPathFileAccess);
    folder.Put("new", "of another program");
    fs::rename(folder.Path / "new", folder.Path / "replaced");
    EXPECT_EQ(CodeOf([&] { group.Commit(numbers[3]); }), kPathFileAccess);
  }
  EXPECT_EQ(folder.Get("plain"), kOld);
  EXPECT_EQ(folder.Get("real"), other);
  EXPECT_EQ(folder.Get("busy"), kOld);
  EXPECT_EQ(folder.Get("replaced"), "of another program");
  EXPECT_EQ(folder.Get("backups/replaced"), kOld);
  for (const char* target : {"plain", "busy", "replaced"}) {
    folder.Put(target, "later");
    EXPECT_EQ(folder.Get(std::string("backups/") + target), kOld) << target;
  }
  EXPECT_FALSE(fs::exists(folder.Path / "backups/nowhere"));
}

}  // namespace
