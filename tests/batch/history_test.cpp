#include "batch/history.h"

#include <random>
#include <sys/xattr.h>

#include "batch/left_states.h"
#include "batch/ring_folder.h"
#include "batch/run_backups.h"
#include "batch/undo_run.h"
#include "platform/system/files.h"

namespace {

namespace fs = std::filesystem;

const RunHead kHead{u"11-19-2026", u"14:05:09", u"Web pages"};

void Write(const TestFolder& folder, const std::string& bytes) {
  folder.Put("WFMFFDIR.DAT", bytes);
}

TEST(History, IsWrittenByteForByte) {
  const TestFolder folder;
  for (const char* name : {"docs", "old", "run"}) fs::create_directory(folder.Path / name);
  for (const char* name : {"docs/a.txt", "old/a.txt", "old/a.html", "docs/\xff.txt"})
    folder.Put(name, name);
  RunBackups backups(folder / "run", kHead);
  backups.BackUp(folder / "docs/a.txt");
  backups.RecordTarget(folder / "docs/a.html");
  backups.Flush();
  // Once a run.
  folder.Put("docs/a.html", "new");
  backups.RecordTarget(folder / "docs/a.html");
  backups.BackUp(folder / "old/a.txt");
  backups.RecordTarget(folder / "old/a.html");
  backups.RecordTarget(folder / "old/../old//a.txt");
  backups.BackUp(folder / "docs/\xff.txt");
  backups.Flush();
  backups.BackUp(folder / "docs/a.txt");
  backups.Close();
  const std::string at = folder.Path.native();
  EXPECT_EQ(folder.Get("run/WFMFFDIR.DAT"),
            "11-19-2026\r\n14:05:09\r\nWeb pages\r\n" + at +
                "/docs/a.txt<TO>a.txt\r\n<REMOVEFILE>" + at + "/docs/a.html\r\n" + at +
                "/old/a.txt<TO>1---a.txt\r\n" + at + "/old/a.html<TO>a.html\r\n" + at +
                "/docs/\xff.txt<TO>\xff.txt\r\n");
  EXPECT_EQ(folder.Get("run/1---a.txt"), "old/a.txt");
  EXPECT_EQ(fs::status(folder.Path / "run/WFMFFDIR.DAT").permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
}

TEST(History, HeadsAndLabels) {
  const struct {
    std::string Bytes;
    std::u16string Label;  // empty where there is no run
    bool NoNameLine = false;
  } cases[]{
      {"11-19-2026\r\n14:05:09\r\nWeb pages\r\n", u"11-19-2026 at 14:05:09 (Web pages)"},
      {"11-19-2026\r\n14:05:09\r\n  a(b \r\n", u"11-19-2026 at 14:05:09"},
      {"11-19-2026\r\n14:05:09\r\n a(bc \r\n", u"11-19-2026 at 14:05:09 (a(bc)"},
      {"11-19-2026\r\n14:05:09\r\n\r\n", u"11-19-2026 at 14:05:09"},
      {"11-19-2026\n14:05:09\ncaf\xe9\n", u"11-19-2026 at 14:05:09 (caf\u00e9)"},
      {"11-19-2026\r\n14:05:09\r\n/a<TO>b\r\n", u"11-19-2026 at 14:05:09", true},
      {"11-19-2026\r\n14:05:09\r\nWeb pages", u""},
      {"11-19-2026\r\n14:05:09\r\n", u""},
      {"", u""},
      {std::string(100'000, 'x'), u""},
      {std::string(17'000, 'x') + "\r\n\r\n\r\n", u""},
  };
  for (const auto& c : cases) {
    const TestFolder folder;
    Write(folder, c.Bytes);
    History history;
    const int code = CodeOf([&] { history = ReadHistoryHead(folder / ""); });
    EXPECT_EQ(code == 0 ? RunLabel(history.Head) : String(), c.Label);
    EXPECT_EQ(history.NoNameLine, c.NoNameLine);
  }
}

TEST(History, Records) {
  const struct {
    std::string Lines;
    std::string AsTheyStand;
    std::string InAnyCase;
  } cases[]{
      {"/a b<TO>b\r\n<REMOVEFILE> /c \r\n", "/a b>b -/c", "/a b>b -/c"},
      {"/a<TO>b<TO>c\r\n", "/a>b<TO>c", "/a>b<TO>c"},
      {"/a<to>b\r\n/c<TO>d\r\n", "bad", "/a>b /c>d"},
      {"/a<TO>b\r\nneither\r\n/c<TO>d\r\n", "/a>b bad", "/a>b bad"},
      {"/a<TO><REMOVEFILE>\r\n/c<TO>d\r\n", "? /c>d", "? /c>d"},
      // Cut off by a kill.
      {"/a<TO>b\r\n/c<TO>d", "/a>b", "/a>b"},
      {"/a<TO>b\r\n/c<TO>d\r", "/a>b", "/a>b"},
      {"/a<TO>b\r\n" + std::string(20'000, 'x'), "/a>b bad", "/a>b bad"},
  };
  const auto told = [](const History& history) {
    std::string text;
    for (const HistoryRecord& record : history.Records) {
      if (!text.empty()) text += ' ';
      switch (record.Kind) {
        case HistoryRecord::Kind::Backup:
          text += ToUtf8(record.Path) + ">" + ToUtf8(record.BackupName);
          break;
        case HistoryRecord::Kind::Removal:
          text += "-" + ToUtf8(record.Path);
          break;
        default:
          text += "?";
      }
    }
    return history.BadLine ? text.empty() ? "bad" : text + " bad" : text;
  };
  for (const auto& c : cases) {
    const TestFolder folder;
    for (const char* head : {"d\r\nt\r\nname\r\n", "d\r\nt\r\n/old<TO>0\r\n"}) {
      Write(folder, head + c.Lines);
      const std::string first = std::string(head).ends_with("0\r\n") ? "/old>0 " : "";
      EXPECT_EQ(told(ReadHistory(folder / "", TokenCase::AsItStands)), first + c.AsTheyStand);
      EXPECT_EQ(told(ReadHistory(folder / "", TokenCase::Any)), first + c.InAnyCase);
    }
  }
}

TEST(RunBackups, RefusesWhatCouldNotBeReadBack) {
  const TestFolder folder;
  fs::create_directory(folder.Path / "run");
  RunBackups backups(folder / "run", kHead);
  for (const char* name :
       {"a\nb", "a\rb", "a<TO>b", "a<to>b", "<ReMoveFile>", "<REMOVEF\u0131LE>"}) {
    folder.Put(name, "text");
    EXPECT_EQ(CodeOf([&] { backups.BackUp(folder / name); }), kBadFileName) << name;
    EXPECT_EQ(CodeOf([&] { backups.RecordTarget(folder / (std::string("no") + name)); }),
              kBadFileName);
  }
  EXPECT_EQ(CodeOf([&] { backups.RecordTarget(folder / "blank "); }), kBadFileName);
  EXPECT_EQ(CodeOf([&] { backups.BackUp(folder / "missing"); }), kFileNotFound);
  EXPECT_EQ(CodeOf([&] { backups.RecordTarget(folder / "run"); }), kPathFileAccess);
  backups.Flush();
  EXPECT_TRUE(ReadHistory(folder / "run", TokenCase::Any).Records.empty());
  for (const char* name : {"one\nrun", "x<to>yz"})
    EXPECT_EQ(CodeOf([&] { MakeRunHead(0, FromUtf8(name)); }), kInvalidCall);
}

TEST(RunBackups, ManyFilesOfOneNameAndLongNames) {
  const TestFolder folder(kMemory);
  const std::string longName(255, 'n');
  fs::create_directory(folder.Path / "run");
  RunBackups backups(folder / "run", kHead);
  folder.Put(longName, "long");
  folder.Put("WFMFFDIR.DAT", "no history");
  folder.Put("index.html", "page");
  // A name that can't be opened is not free.
  fs::create_symlink("nowhere", folder.Path / "run/1---index.html");
  for (int i = 0; i < 1500; ++i) backups.BackUp(folder / "index.html");
  for (const std::string& name : {longName, longName, std::string("WFMFFDIR.DAT")})
    backups.BackUp(folder / name);
  backups.Flush();
  EXPECT_EQ(folder.Get("run/1500---index.html"), "page");
  EXPECT_FALSE(fs::exists(folder.Path / "nowhere"));
  EXPECT_EQ(folder.Get("run/1---WFMFFDIR.DAT"), "no history");
  EXPECT_EQ(folder.Get("run/1---" + longName.substr(4)), "long");
}

TEST(RunBackups, BackupsKeepWhatAFileHasBesides) {
  const TestFolder folder;
  fs::create_directory(folder.Path / "run");
  folder.Put("a", "text");
  fs::permissions(folder.Path / "a", fs::perms{0640});
  const auto time = fs::last_write_time(folder.Path / "a") - std::chrono::hours(1000);
  fs::last_write_time(folder.Path / "a", time);
  const std::string value = "read";
  const bool hasAttributes =
      setxattr((folder.Path / "a").c_str(), "user.state", value.data(), value.size(), 0) == 0;
  RunBackups(folder / "run", kHead).BackUp(folder / "a");
  char kept[16];
  const ssize_t size = getxattr((folder.Path / "run/a").c_str(), "user.state", kept, sizeof kept);
  EXPECT_TRUE(!hasAttributes ||
              std::string(kept, static_cast<std::size_t>(std::max<ssize_t>(size, 0))) == value);
  EXPECT_EQ(fs::status(folder.Path / "run/a").permissions(), fs::perms{0640});
  EXPECT_EQ(fs::last_write_time(folder.Path / "run/a"), time);
}

TEST(LeftStates, TellAFileThatWasChanged) {
  const TestFolder folder;
  folder.Put("a", "text");
  const auto state = StateOf(folder / "a");
  EXPECT_TRUE(IsAsLeft(folder / "a", state));
  // Touched.
  fs::last_write_time(folder.Path / "a", fs::file_time_type::clock::now() + std::chrono::hours(1));
  EXPECT_TRUE(IsAsLeft(folder / "a", state));
  for (const char* content : {"texu", "txet", "longer text", ""}) {
    folder.Put("a", content);
    EXPECT_FALSE(IsAsLeft(folder / "a", state)) << content;
  }
  fs::remove(folder.Path / "a");
  EXPECT_FALSE(IsAsLeft(folder / "a", state));
  EXPECT_TRUE(IsAsLeft(folder / "a", {}));
}

TEST(LeftStates, ChecksumsDoNotDependOnThePieces) {
  std::mt19937 random(7);
  std::string bytes(1000, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  Checksum whole;
  whole.Add(bytes);
  for (int round = 0; round < 50; ++round) {
    Checksum pieces;
    for (std::size_t at = 0; at < bytes.size();) {
      const std::size_t size = std::min<std::size_t>(random() % 20, bytes.size() - at);
      pieces.Add(std::string_view(bytes).substr(at, size));
      at += size;
    }
    EXPECT_EQ(pieces.Value(), whole.Value());
    Checksum other;
    std::string changed = bytes;
    changed[random() % changed.size()] ^= 1;
    other.Add(changed);
    EXPECT_NE(other.Value(), whole.Value());
  }
}

// No file but those of the records is touched, and nothing worse than a message happens.
TEST(History, OfRandomBytesOrCutAnywhere) {
  std::mt19937 random(11);
  const TestFolder folder(kMemory);
  fs::create_directory(folder.Path / "run");
  folder.Put("run/a", "old");
  folder.Put("outside", "mine");
  const std::string path = folder.Path.native();
  const std::string good = "d\r\nt\r\nname\r\n" + path + "/a<TO>a\r\n" + path +
                           "/b<TO>../outside\r\n" + path + "/c<TO>" + path + "/outside\r\n" + path +
                           "/d<TO>\r\nrelative<TO>a\r\n<REMOVEFILE>relative\r\n<REMOVEFILE>" +
                           path + "/e\r\n";
  for (std::size_t size = 0; size <= good.size(); ++size) {
    folder.Put("e", "made");
    folder.Put("run/WFMFFDIR.DAT", good.substr(0, size));
    try {
      const UndoOutcome outcome = UndoRun(folder / "run", {});
      EXPECT_TRUE(size < good.size() || outcome.Failures.size() == 4);
    } catch (const RuntimeError& error) {
      EXPECT_LT(size, 13u) << error.what();
    }
    EXPECT_EQ(fs::exists(folder.Path / "e"), size < good.size());
    for (const char* name : {"b", "c", "d"}) EXPECT_FALSE(fs::exists(folder.Path / name)) << size;
    EXPECT_EQ(folder.Get("outside"), "mine");
  }
  EXPECT_EQ(folder.Get("a"), "old");
  for (int round = 0; round < 300; ++round) {
    std::string bytes = good;
    // Never in the paths of the test's own folder, so that nothing outside is named.
    for (int i = 0; i < 8; ++i) {
      const std::size_t at = random() % bytes.size();
      const std::size_t in = bytes.rfind(path, at);
      if (in == std::string::npos || at >= in + path.size())
        bytes[at] = static_cast<char>(random());
    }
    if (round % 2 == 0)
      for (char& byte : bytes) byte = "\r\n<TO>\0\xff/."[random() % 10];
    folder.Put("run/WFMFFDIR.DAT", bytes);
    folder.Put("run/WFMFFEND.DAT", bytes);
    CodeOf([&] { UndoRun(folder / "run", {}); });
  }
  EXPECT_EQ(folder.Get("outside"), "mine");
}

}  // namespace
