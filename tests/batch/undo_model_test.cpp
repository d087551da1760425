// Random runs, undone wholly or by file, against a plain model: a map from file to bytes.

#include <map>
#include <optional>
#include <random>

#include "batch/backup_ring.h"
#include "batch/ring_folder.h"
#include "batch/run_backups.h"
#include "batch/undo_run.h"
#include "platform/system/files.h"
#include "platform/system/safe_save.h"

namespace {

namespace fs = std::filesystem;

using Files = std::map<std::string, std::string>;

// Names under which the files are worked on, and the file that each is.
const std::pair<const char*, const char*> kNames[]{{"a", "a"},
                                                   {"link", "a"},
                                                   {"sub/../a", "a"},
                                                   {"b", "b"},
                                                   {"hard", "b"},
                                                   {"c", "c"},
                                                   {"sub/d", "sub/d"},
                                                   {"sub//d", "sub/d"},
                                                   {"new.html", "new.html"},
                                                   {"sub/new.html", "sub/new.html"},
                                                   {"sub/a", "sub/a"}};

class Model {
 public:
  explicit Model(unsigned seed) : random_(seed), folder_(kMemory) {
    fs::create_directory(folder_.Path / "sub");
    for (const char* name : {"a", "b", "c", "sub/d", "sub/a"}) folder_.Put(name, Content());
    fs::create_symlink("a", folder_.Path / "link");
    fs::create_hard_link(folder_.Path / "b", folder_.Path / "hard");
    if (Chance(2)) folder_.Put("new.html", Content());
    // Many files are undone in another way than a few.
    if (Chance(2))
      for (int i = 0; i < 10; ++i) more_.push_back("more" + std::to_string(i));
    for (const std::string& name : more_) folder_.Put(name, Content());
    before_ = Now();
  }

  void RunRandomly() {
    BackupRing ring(folder_ / "data");
    fs::create_directory(folder_.Path / "data");
    run_ = ring.Prepare().value();
    RunBackups backups(run_, MakeRunHead(0, u"Random run"));
    for (unsigned row = 0; row < 1 + random_() % 6; ++row) {
      const auto [name, file] = kNames[random_() % std::size(kNames)];
      Row(backups, name, file);
    }
    for (const std::string& file : more_) Row(backups, file, file);
    finished_ = !Chance(4);
    if (!finished_) return;
    backups.Close();
    noted_ = told_;
  }

  void ChangeFromOutside() {
    for (const auto& [file, bytes] : Now()) {
      if (Chance(5)) folder_.Put(file, Content());
      // A name of its own, so that the other name of a hard link stays as it is.
      if (Chance(8) && file != "b") fs::remove(folder_.Path / file);
    }
    if (Chance(10)) fs::remove_all(folder_.Path / "sub");
    if (Chance(8)) folder_.Put("new.html", Content());
  }

  void UndoAndCompare() {
    const ChangedFiles answer = Chance(2) ? ChangedFiles::Restore : ChangedFiles::Leave;
    UndoOrder order;
    std::set<std::string> wanted;
    if (Chance(2)) {
      order.Selected.emplace();
      for (const auto& [path, file] : backedUp_) {
        if (!Chance(2)) continue;
        order.Selected->insert(path);
        if (before_.contains(file)) wanted.insert(file);
      }
    } else {
      for (const auto& [path, file] : backedUp_) wanted.insert(file);
      for (const std::string& file : made_) wanted.insert(file);
    }
    std::size_t asked = 0;
    order.AskChanged = [&](const std::vector<String>& paths) {
      asked = paths.size();
      return answer;
    };

    const Files outside = Now();
    Files expected = outside;
    std::size_t changed = 0;
    std::multiset<std::string> kept;
    for (const std::string& file : wanted) {
      const auto now = outside.find(file);
      const auto old = before_.find(file);
      const bool isOld =
          (now == outside.end() && old == before_.end()) ||
          (now != outside.end() && old != before_.end() && now->second == old->second);
      if (isOld) continue;
      const bool isThere = now != outside.end();
      const auto noted = noted_.find(file);
      const bool isChanged =
          isThere && noted != noted_.end() && noted->second != std::optional(now->second);
      changed += isChanged;
      if (isChanged && answer == ChangedFiles::Leave) continue;
      if (isThere && (isChanged || noted == noted_.end())) kept.insert(now->second);
      if (old == before_.end())
        expected.erase(file);
      else
        expected[file] = old->second;
    }
    const UndoOutcome outcome = UndoRun(run_, order);
    EXPECT_EQ(outcome.Failures, std::vector<String>{});
    EXPECT_EQ(asked, changed);
    EXPECT_EQ(outcome.Left.size(), answer == ChangedFiles::Leave ? changed : 0);
    EXPECT_EQ(Now(), expected);
    EXPECT_EQ(Kept(), kept);
    EXPECT_TRUE(fs::is_symlink(folder_.Path / "link"));
    EXPECT_EQ(fs::hard_link_count(folder_.Path / "b"), 2u);
    // What was restored needs no second restoring.
    if (answer == ChangedFiles::Restore) {
      UndoRun(run_, order);
      EXPECT_EQ(Now(), expected);
      EXPECT_EQ(Kept(), kept);
    }
  }

 private:
  bool Chance(unsigned of) { return random_() % of == 0; }
  std::string Content() {
    return std::string(random_() % 4 * 100, 'x') + std::to_string(random_());
  }

  Files Now() const {
    Files files;
    for (const char* name : {"a", "b", "c", "sub/d", "sub/a", "new.html", "sub/new.html"})
      if (fs::exists(folder_.Path / name)) files[name] = folder_.Get(name);
    for (const std::string& name : more_)
      if (fs::exists(folder_.Path / name)) files[name] = folder_.Get(name);
    return files;
  }

  std::multiset<std::string> Kept() const {
    std::multiset<std::string> kept;
    for (const auto& entry : fs::directory_iterator(ToUtf8(run_)))
      if (entry.path().filename().native().find("undone---") != std::string::npos) {
        std::ostringstream content;
        content << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        kept.insert(content.str());
      }
    return kept;
  }

  void Row(RunBackups& backups, const std::string& name, const std::string& file) {
    const String path = folder_ / name;
    if (fs::exists(folder_.Path / file)) {
      backups.BackUp(path);
      backedUp_.emplace(path, file);
    } else {
      backups.RecordTarget(path);
      made_.insert(file);
    }
    backups.Flush();
    noted_ = told_;
    // A tool may fail before it has written anything.
    if (!Chance(4)) {
      const std::string content = Content();
      SafeSave(path, [&](const ByteSink& sink) { sink(content); });
    }
    if (Chance(5)) return;
    backups.NoteLeft(path);
    const Files now = Now();
    told_[file] = now.contains(file) ? std::optional(now.at(file)) : std::nullopt;
  }

  std::mt19937 random_;
  TestFolder folder_;
  Files before_;
  String run_;
  bool finished_ = false;
  std::vector<std::string> more_;
  std::map<String, std::string> backedUp_;
  std::set<std::string> made_;
  // What the run has told that it has left; what of that is on the disk.
  std::map<std::string, std::optional<std::string>> told_;
  std::map<std::string, std::optional<std::string>> noted_;
};

TEST(UndoRun, AgreesWithAPlainModel) {
  for (unsigned seed = 1; seed <= 400; ++seed) {
    SCOPED_TRACE(seed);
    Model model(seed);
    model.RunRandomly();
    model.ChangeFromOutside();
    model.UndoAndCompare();
    if (::testing::Test::HasFailure()) break;
  }
}

}  // namespace
