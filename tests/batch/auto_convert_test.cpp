// What a run makes of files: failures, names, questions, Cancel, and what it tells.

#include "batch/batch_fixture.h"
#include "batch/failure_text.h"
#include "batch/undo_run.h"
#include "platform/system/file_copy.h"
#include "platform/system/files.h"
#include "platform/system/posix/sys.h"

namespace {

namespace fs = std::filesystem;
using Contents = std::map<std::string, std::string>;
using Texts = std::vector<std::string>;

constexpr const char* kRestored =
    "The Multiple File Flurn has been aborted and any files changed have been restored from the "
    "backup.";

ToolSettings SearchFor(StringView text, bool byCodes = false) {
  return SearchSettings{.SearchFor = String(text), .ReplaceWith = u"x", .ByCodes = byCodes};
}

class AutoConvert : public ::testing::Test, public BatchFixture {
 protected:
  void Put(const Contents& files) {
    for (const auto& [name, content] : files) {
      fs::create_directories((Files.Path / name).parent_path());
      Files.Put(name, content);
    }
  }
  // All regular files, by their paths in the folder.
  Contents Now() const {
    Contents now;
    for (const auto& entry : fs::recursive_directory_iterator(Files.Path))
      if (entry.is_regular_file() && !entry.is_symlink())
        now[fs::relative(entry.path(), Files.Path)] =
            Files.Get(fs::relative(entry.path(), Files.Path));
    return now;
  }
  BatchOrder Order(const Texts& rows, const std::vector<BatchPass>& passes) const {
    BatchOrder order;
    for (const std::string& row : rows) order.Files.push_back(Files / row);
    std::copy(passes.begin(), passes.end(), order.Passes.begin());
    return order;
  }
  void Undo() { EXPECT_EQ(UndoRun(Data / "MFF-Backups/1", {}).Failures, std::vector<String>{}); }
  // One step with these settings as a custom tool of its own.
  BatchPass Custom(StringView name, const std::vector<ToolStep>& steps) {
    CustomTool tool;
    tool.Name = name;
    std::copy(steps.begin(), steps.end(), tool.Steps.begin());
    AddCustomTool(tool);
    return {String(kCustomToolPrefix).append(name)};
  }
};

TEST_F(AutoConvert, AFileThatFailsIsToldOfAndPassedOver) {
  const std::string many(30001, '\n');
  const struct {
    const char* Name;
    std::string Bad;  // content; none: there is no such file
    BatchPass Pass;
    const char* Log;
    bool BackedUp;
  } cases[] = {
      {"missing.txt", "-", {u"All Upper Case"}, "No such file or directory", false},
      {"empty.txt", "", {u"All Upper Case"}, "the file is empty", false},
      {"code.txt",
       "x\nsee **This file has been encrypted with WordFlurn**\n",
       {u"All Upper Case"},
       "File is encrypted and cannot be flurned.",
       false},
      {"read-only.txt", "a\n", {u"All Upper Case"}, "the file is read-only", false},
      {"page.txt",
       "no body",
       {u"Convert FROM HTML"},
       "No <BODY> tag found.  In order to convert from an HTML file to a text file, there must be "
       "a <BODY> tag in the file.",
       true},
      {"long.txt",
       many,
       {u"Indent Paragraphs"},
       "Unknown - but likely you are trying to change too many files or the file is too large to "
       "process.",
       true},
      {"a.dat",
       "\x95\n",
       {u"All Upper Case"},
       "Appears not to be an ASCII file.  User cancelled flurn operation on this file and file was "
       "not changed.",
       true},
  };
  AnyFileIsText = false;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    Put({{"first.txt", "<body>one</body>\n"}, {"last.txt", "<body>two</body>\n"}});
    if (c.Bad != "-") Put({{c.Name, c.Bad}});
    if (c.Name == std::string("read-only.txt"))
      fs::permissions(Files.Path / c.Name, fs::perms(0444));
    Told.clear();
    Progress = {};
    EXPECT_EQ(RunBatch(Order({"first.txt", c.Name, "last.txt"}, {c.Pass})), BatchEnd::Done);
    EXPECT_EQ(ToldOf().back(), c.Name + std::string("......Error: ") + c.Log + "\r\n");
    EXPECT_EQ(Files.Get(c.Name), c.Bad == "-" ? "" : c.Bad);
    if (c.Pass.Tool != u"Indent Paragraphs") {
      EXPECT_NE(Files.Get("last.txt"), "<body>two</body>\n");
    }
    EXPECT_EQ(Progress.Pauses, (std::vector<int>{1000, 4000, 1000}));
    const String path = Files / c.Name;
    const String status = std::string(c.Name) == "a.dat"
                              ? u"Skipping file: " + path + u"\r\nFile appears to be non-ASCII."
                              : u"Error encountered with: " + path + u"\r\nSkipping File.";
    EXPECT_EQ(std::count(Progress.Statuses.begin(), Progress.Statuses.end(), status), 1);
    EXPECT_EQ(Batch.State.FailedFiles, std::vector<String>{path});
    const std::string record = std::string(c.Name) + "<TO>" + c.Name + "\r\n";
    EXPECT_EQ(History().find(record) != std::string::npos, c.BackedUp) << History();
    Undo();
    EXPECT_EQ(Files.Get("first.txt"), "<body>one</body>\n");
    fs::remove_all(Data.Path / "MFF-Backups");
    fs::remove(Files.Path / "first.txt");
    fs::remove(Files.Path / c.Name);
  }
  for (const auto& [code, text] : {std::pair(kOutOfMemory, "Out of Memory - File too large"),
                                   std::pair(kInvalidCall, "#5 - Something unexpected happened")})
    EXPECT_TRUE(ToUtf8(FailureOf(RuntimeError(code, "x"), u"f", true).LogText).starts_with(text));
}

// The first file has been written when the second one meets the failure.
TEST_F(AutoConvert, AnAbortedRunIsTakenBack) {
  const std::string why[] = {
      "Error: One of your <OR> statements results to nothing - meaning that there's nothing to "
      "search for.  ",
      "Error: One or more of your ASCII codes is invalid.  They can only be between 0-255.  Make "
      "sure you separate each code by a space.  ",
      "Error: You cannot search using only carriage returns. ",
      "Error: Control has not returned from the program specified in Run Program. ",
      "The program specified in the Run Program tool does not exist or cannot be accessed. ",
  };
  // Works once: then it is another one, or none.
  const auto once = [this](const char* then) {
    Put({{"once", std::string("#!/bin/sh\necho new >\"$1\"\n") + then}});
    fs::permissions(Files.Path / "once", fs::perms::owner_all);
    return ToolStep{String(kRunProgram), RunSettings{Files / "once"}};
  };
  for (std::size_t i = 0; i < std::size(why); ++i) {
    for (const bool fast : {false, true}) {
      SCOPED_TRACE(why[i]);
      fs::remove_all(Data.Path / "MFF-Backups");
      Put({{"a.txt", "one\n"}, {"b.txt", "two\n"}});
      const std::string name = std::to_string(i) + (fast ? "fast" : "slow");
      std::vector<BatchPass> passes{{u"All Upper Case"}, {u"Convert TO HTML"}};
      if (i == 0) passes.push_back({String(kSearchAndReplace), SearchFor(u"a<OR>")});
      if (i == 1) passes.push_back({String(kSearchAndReplace), SearchFor(u"256", true)});
      if (i == 2) passes.push_back({String(kSearchAndReplace), SearchFor(u"\r\n")});
      const char* const then = i == 3 ? "printf '#!/bin/sh\\nexit 1' >\"$0\"" : "rm \"$0\"";
      if (i > 2) passes = {Custom(FromUtf8(name.substr(0, 5)), {once(then)})};
      Windows.Notices.clear();
      Told.clear();
      BatchOrder order = Order({"a.txt", "b.txt"}, passes);
      order.SuperFast = fast;
      Progress = {};
      EXPECT_EQ(RunBatch(order), BatchEnd::Aborted);
      EXPECT_EQ(ToldOf(), Texts{why[i] + kRestored});
      EXPECT_EQ(Batch.State.FailedFileCount(), 1u);
      Contents now = Now();
      now.erase("once");
      EXPECT_EQ(now, (Contents{{"a.txt", "one\n"}, {"b.txt", "two\n"}}));
      App.CustomToolNames.clear();
      fs::remove(Data.Path / "FLURNCUS.DAT");
      App.UseCustomTools(ReadCustomToolNames(App.Fields.CustomToolFile));
    }
  }
}

// Of each case: the files, the list, the passes, and what stands there afterwards, in the history
// and in the report.
TEST_F(AutoConvert, NamesOfResults) {
  const BatchPass to{String(kToHtml)}, from{String(kFromHtml)}, upper{u"All Upper Case"};
  const struct {
    const char* What;
    Contents Before;
    Texts Rows;
    std::vector<BatchPass> Passes;
    std::string Prefix, Location;
    // "=" stands for the content before; "+" for any other.
    Contents After;
    std::string History, Report;
    // What undo leaves beside the files from before.
    Texts Stays;
  } cases[] = {
      {"a new name, and back",
       {{"a.txt", "x\n"}},
       {"a.txt"},
       {to, from},
       "",
       "",
       {{"a.txt", "="}, {"a.html", "+"}},
       "a.txt<TO>a.txt\r\n<REMOVEFILE>a.html\r\n",
       "",
       {}},
      {"a new name onto another's file",
       {{"p.htm", "<body>x</body>"}, {"p.txt", "other"}},
       {"p.htm"},
       {from, upper},
       "",
       "",
       {{"p.htm", "="}, {"p.txt", "X\r\n"}},
       "p.htm<TO>p.htm\r\np.txt<TO>p.txt\r\n",
       "",
       {}},
      {"a second new name",
       {{"p.htm", "<body>x</body>"}},
       {"p.htm"},
       {from, to},
       "",
       "",
       {{"p.htm", "="}, {"p.txt", "+"}, {"p.html", "+"}},
       "p.htm<TO>p.htm\r\n<REMOVEFILE>p.txt\r\n<REMOVEFILE>p.html\r\n",
       "",
       {}},
      {"dots in front and in folders",
       {{"v1.2/README", "x\n"}, {"v1.2/.rc", "x\n"}, {"v1.2/a.b.c", "x\n"}},
       {"v1.2/README", "v1.2/.rc", "v1.2/a.b.c"},
       {to},
       "",
       "",
       {{"v1.2/README", "="},
        {"v1.2/.rc", "="},
        {"v1.2/a.b.c", "="},
        {"v1.2/README.html", "+"},
        {"v1.2/.rc.html", "+"},
        {"v1.2/a.b.html", "+"}},
       "v1.2/README<TO>README\r\n<REMOVEFILE>v1.2/README.html\r\nv1.2/.rc<TO>.rc\r\n"
       "<REMOVEFILE>v1.2/.rc.html\r\nv1.2/a.b.c<TO>a.b.c\r\n<REMOVEFILE>v1.2/a.b.html\r\n",
       "",
       {}},
      {"a prefix",
       {{"a.txt", "x\n"}, {"b.txt", "x\n"}, {"new-b.txt", "other"}},
       {"a.txt", "b.txt"},
       {upper},
       "new-",
       "",
       {{"a.txt", "="}, {"b.txt", "="}, {"new-a.txt", "X\n"}, {"new-b.txt", "X\n"}},
       "a.txt<TO>a.txt\r\nb.txt<TO>b.txt\r\nnew-b.txt<TO>new-b.txt\r\n",
       "",
       {"new-a.txt"}},
      {"a location, without the prefix, in the first pass alone",
       {{"a.txt", "x\ny\n"}, {"out/keep", ""}},
       {"a.txt"},
       {upper, {u"Add Double Spacing"}},
       "new-",
       "out",
       {{"a.txt", "="}, {"out/keep", "="}, {"out/a.txt", "X\nY\n"}, {"new-a.txt", "x\n\ny\n"}},
       "a.txt<TO>a.txt\r\n",
       "",
       {"out/a.txt", "new-a.txt"}},
      {"a new name in a location is noted",
       {{"a.txt", "x\n"}, {"out/keep", ""}},
       {"a.txt"},
       {to},
       "",
       "out",
       {{"a.txt", "="}, {"out/keep", "="}, {"out/a.html", "+"}},
       "a.txt<TO>a.txt\r\n<REMOVEFILE>out/a.html\r\n",
       "",
       {}},
      {"two files, one destination",
       {{"one/a.txt", "1\n"}, {"two/a.txt", "2\n"}, {"out/keep", ""}},
       {"one/a.txt", "two/a.txt"},
       {upper},
       "",
       "out",
       {{"one/a.txt", "="}, {"two/a.txt", "="}, {"out/keep", "="}, {"out/a.txt", "1\n"}},
       "one/a.txt<TO>a.txt\r\n",
       "two/a.txt......Error: The name out/a.txt is already written by this run.\r\n",
       {"out/a.txt"}},
      {"a destination that is a later row",
       {{"a.txt", "1\n"}, {"a.html", "2\n"}},
       {"a.txt", "a.html"},
       {to},
       "",
       "",
       {{"a.txt", "="}, {"a.html", "+"}},
       "a.txt<TO>a.txt\r\na.html<TO>a.html\r\n",
       "a.html......Error: The name a.html is already written by this run.\r\n",
       {}},
      {"the same file twice",
       {{"a.txt", "1\n2\n"}},
       {"a.txt", "a.txt"},
       {{String(kSearchAndReplace), SearchSettings{.SearchFor = u"1", .ReplaceWith = u"11"}}},
       "",
       "",
       {{"a.txt", "1111\n2\n"}},
       "a.txt<TO>a.txt\r\na.txt<TO>1---a.txt\r\n",
       "",
       {}},
      {"no tool",
       {{"a.txt", "1\n"}},
       {"a.txt"},
       {},
       "",
       "",
       {{"a.txt", "="}},
       "a.txt<TO>a.txt\r\n",
       "",
       {}},
      {"a failure behind a new name",
       {{"a.htm", "<body>x</body>"}},
       {"a.htm"},
       {from, from},
       "",
       "",
       {{"a.htm", "="}, {"a.txt", "x\r\n"}},
       "a.htm<TO>a.htm\r\n<REMOVEFILE>a.txt\r\n",
       "a.txt......Error: No <BODY> tag found.  In order to convert from an HTML file to a text "
       "file, there must be a <BODY> tag in the file.\r\n",
       {}},
  };
  for (const auto& c : cases) {
    for (const bool fast : {false, true}) {
      SCOPED_TRACE(c.What);
      fs::remove_all(Data.Path / "MFF-Backups");
      for (const auto& entry : fs::directory_iterator(Files.Path)) fs::remove_all(entry);
      Put(c.Before);
      BatchOrder order = Order(c.Rows, c.Passes);
      order.AddPrefix = FromUtf8(c.Prefix);
      if (!c.Location.empty()) order.SaveToLocation = Files / c.Location;
      order.SuperFast = fast;
      Told.clear();
      EXPECT_EQ(RunBatch(order), BatchEnd::Done);
      Contents after = Now();
      for (const auto& [name, content] : c.After) {
        const auto before = c.Before.find(name);
        const bool isOld = before != c.Before.end() && after[name] == before->second;
        if (content == "=" || content == "+") {
          EXPECT_EQ(isOld, content == "=") << name;
        } else {
          EXPECT_EQ(after[name], content) << name;
        }
        after.erase(name);
      }
      EXPECT_EQ(after, Contents{}) << "files too many";
      EXPECT_EQ(History(), c.History);
      EXPECT_EQ(ToldOf(), c.Report.empty() ? Texts{} : Texts{c.Report});
      if (!c.Report.empty()) {
        EXPECT_EQ(Batch.State.FailedFiles.back(), Files / c.Rows.back());
      }
      Contents undone = Now();
      Undo();
      Contents expected = c.Before;
      for (const std::string& name : c.Stays) expected[name] = undone[name];
      EXPECT_EQ(Now(), expected);
    }
  }
}

// Four lines; the extension is what stands behind the last dot of the whole path.
TEST_F(AutoConvert, WhichFilesAreAskedAbout) {
  const std::string page = "\x85\x91\x92\x93\x94\x96\x97 typographic\n\t\x7F\n";
  const struct {
    const char* Name;
    std::string Content;
    bool Asks;
  } cases[] = {
      {"a.dat", "a\nb\nc\nd\n\xFF\n", false},
      {"a.dat", "a\nb\nc\n\xFF\n", true},
      {"a.log", "a\nb\x08\n", true},
      {"a.log", page, false},
      {"a.log", "\x95 bullet\n", true},
      {"a.log", "caf\xC3\xA9\n", true},
      {"a.log", "\xE2\x80\x9C quoted \xE2\x80\x9D\n", false},
      {"a.TXT", "\x95\x08\n", false},
      {"a.Htm", "\x95\n", false},
      {"a.html", "\x95\n", false},
      {"v1.2/README", "\x95\n", true},
      {"plain/README", "\x95\n", true},
      {"a.", "\x95\n", false},
  };
  // The folder's own name has no dot.
  ASSERT_EQ(Files.Path.native().find('.'), std::string::npos);
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name + std::string(": ") + c.Content);
    Put({{c.Name, c.Content}});
    Told.clear();
    RunBatch(Order({c.Name}, {{u"All Lower Case"}}));
    const bool asks = c.Asks && std::string(c.Name) != "plain/README";
    EXPECT_EQ(ToldOf(), asks ? Texts{std::string("File: ") + c.Name} : Texts{});
  }
}

TEST_F(AutoConvert, AnyTextTakesWellFormedUnicodeAlone) {
  AnyFileIsText = false;
  const std::pair<std::string, bool> cases[] = {
      {"caf\xC3\xA9\n", true},
      {"\xEF\xBB\xBF\xC3\xA9\n", true},
      {std::string("\xFF\xFE\xE9\0\n\0", 6), true},
      {"caf\xE9\n", false},
      // UTF-8 but for one stray byte.
      {"\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xFF\n", false},
      {"\xC3\xA9\x08\n", false},
      {std::string("\xC3\xA9\0\n", 4), false},
      {"a\nb\nc\nd\n", true},
  };
  for (const auto& [content, isChanged] : cases) {
    SCOPED_TRACE(content);
    Put({{"a.dat", content}});
    BatchOrder order = Order({"a.dat"}, {{u"All Upper Case"}});
    order.AnyText = true;
    RunBatch(order);
    EXPECT_EQ(Files.Get("a.dat") != content, isChanged);
  }
}

TEST_F(AutoConvert, CancelAtEachPoint) {
  const std::string none = "Canceled before any files were flurned.";
  const std::string behind =
      ". All files up to and including this file have already been flurned. Any remaining files "
      "will not be flurned.";
  for (const bool full : {false, true}) {
    for (const bool fast : {false, true}) {
      // Before the rotation, in it, behind it; behind each of the files.
      for (int look = 1; look <= (full ? 3 : 2); ++look) {
        SCOPED_TRACE(look);
        fs::remove_all(Data.Path / "MFF-Backups");
        if (full) PutRing(Data, kFullRing);
        Put({{"a.txt", "x\n"}});
        Windows.Notices.clear();
        Told.clear();
        Progress = {};
        Progress.CancelAtLook = look;
        BatchOrder order = Order({"a.txt"}, {{u"All Upper Case"}});
        order.SuperFast = fast;
        EXPECT_EQ(RunBatch(order), BatchEnd::Cancelled);
        EXPECT_EQ(ToldOf(), Texts{none});
        EXPECT_EQ(Files.Get("a.txt"), "x\n");
        EXPECT_FALSE(Batch.Ring.Find(Batch.State.Run).has_value());
      }
      for (int file = 1; file <= 3; ++file) {
        SCOPED_TRACE(file);
        fs::remove_all(Data.Path / "MFF-Backups");
        Put({{"1.txt", "x\n"}, {"2.htm", "<body>y"}, {"3.txt", "z\n"}});
        Windows.Notices.clear();
        Told.clear();
        Progress = {};
        Progress.CancelAtFile = file;
        BatchOrder order = Order({"1.txt", "2.htm", "3.txt"}, {{String(kToHtml)}});
        order.SuperFast = fast;
        EXPECT_EQ(RunBatch(order), BatchEnd::Cancelled);
        EXPECT_EQ(ToldOf(), Texts{"Canceled at " + std::to_string(file) + ".html" + behind});
        for (int made = 1; made <= 3; ++made)
          EXPECT_EQ(!Files.Get(std::to_string(made) + ".html").empty(), made <= file) << made;
        Undo();
        EXPECT_EQ(Now().count("1.html"), 0u);
      }
    }
  }
}

// A pass runs with its own settings; without any, with those that the pass before has put into the
// window, and the first one with what the window holds.
TEST_F(AutoConvert, SettingsOfEachPass) {
  App.Tools.SearchReplaceForm.Use(SearchSettings{.SearchFor = u"a", .ReplaceWith = u"[w]"});
  const BatchPass own{String(kSearchAndReplace),
                      SearchSettings{.SearchFor = u"b", .ReplaceWith = u"bb"}};
  const BatchPass none{String(kSearchAndReplace)};
  const std::pair<std::vector<BatchPass>, const char*> cases[] = {
      {{none}, "[w]b\n"},
      {{own}, "abb\n"},
      {{own, none}, "abbbb\n"},
      {{none, own}, "[w]bb\n"},
  };
  for (const auto& [passes, result] : cases) {
    // The second file begins as the first one did.
    Put({{"a.txt", "ab\n"}, {"b.txt", "ab\n"}});
    RunBatch(Order({"a.txt", "b.txt"}, passes));
    EXPECT_EQ(Files.Get("a.txt"), result);
    EXPECT_EQ(Files.Get("b.txt"), result);
  }
}

// A step that fails leaves what the steps before it have made; a chain without any work fails.
TEST_F(AutoConvert, StepsOfACustomTool) {
  const ToolStep upper{u"All Upper Case", {}}, none{}, spaced{u"Add Double Spacing", {}},
      from{String(kFromHtml), {}}, to{String(kToHtml), HtmlSettings{}};
  const BatchPass gaps = Custom(u"Gaps", {upper, none, spaced, none, none});
  const BatchPass stops = Custom(u"Stops", {upper, none, from, spaced});
  const BatchPass idle = Custom(u"Idle", {none, none});
  const BatchPass renames = Custom(u"Renames", {upper, to, from, from});
  const std::string noBody =
      "......Error: No <BODY> tag found.  In order to convert from an HTML file to a text file, "
      "there must be a <BODY> tag in the file.\r\n";
  const std::string nothing = "......Error: the tools have made no result\r\n";
  const struct {
    std::vector<BatchPass> Passes;
    Contents After;
    std::string Report;
  } cases[] = {
      {{gaps}, {{"a.txt", "X\n\nY\n"}}, ""},
      {{stops}, {{"a.txt", "X\nY\n"}}, "a.txt" + noBody},
      {{stops, gaps}, {{"a.txt", "X\nY\n"}}, "a.txt" + noBody},
      {{idle}, {{"a.txt", "x\ny\n"}}, "a.txt" + nothing},
      {{{u"All Upper Case"}, idle}, {{"a.txt", "X\nY\n"}}, "a.txt" + nothing},
      {{renames}, {{"a.txt", "X\nY\n"}, {"a.html", "+"}}, "a.txt" + noBody},
  };
  for (const auto& c : cases) {
    for (const auto& entry : fs::directory_iterator(Files.Path)) fs::remove_all(entry);
    Put({{"a.txt", "x\ny\n"}});
    Told.clear();
    RunBatch(Order({"a.txt"}, c.Passes));
    Contents now = Now();
    if (c.After.contains("a.html")) now["a.html"] = "+";
    EXPECT_EQ(now, c.After);
    EXPECT_EQ(ToldOf(), c.Report.empty() ? Texts{} : Texts{c.Report});
  }
}

TEST_F(AutoConvert, TheSettingsOfStepsAreAskedForOnce) {
  const ToolStep asks{String(kSearchAndReplace), SearchFor(u"a"), true};
  const BatchPass pass = Custom(u"Asks", {asks});
  Put({{"a.txt", "ab\n"}, {"b.txt", "ab\n"}, {"e.txt", ""}});
  const auto usual = Windows.OnModal;
  int asked = 0;
  Windows.OnModal = [&](Form& form) {
    if (&form != &App.Tools.SearchReplaceForm) return usual(form);
    ++asked;
    App.Tools.SearchReplaceForm.Text2.Text = u"!";
    App.Tools.SearchReplaceForm.CloseByFrame();
  };
  RunBatch(Order({"e.txt", "a.txt", "b.txt"}, {pass}));
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(Told.front(), "Multiple File Flurn ");
  EXPECT_EQ(Files.Get("b.txt"), "!b\n");
}

TEST_F(AutoConvert, FilesThatNoRunMayWrite) {
  const BatchPass upper{u"All Upper Case"};
  Data.Put("FLURNOPT.DAT", "options\n");
  PutRing(Data, "1a");
  // As rows, and as what a row would write.
  BatchOrder order = Order({}, {upper});
  order.Files = {Data / "FLURNOPT.DAT", Data / "MFF-Backups/1/WFMFFDIR.DAT"};
  RunBatch(order);
  EXPECT_EQ(Batch.State.FailedFileCount(), 2u);
  Put({{"FLURNOPT.DAT", "x\n"}, {"WFMFFDIR.DAT", "x\n"}, {"loop", "x\n"}, {"seen.txt", "x\n"}});
  for (const char* row : {"FLURNOPT.DAT", "WFMFFDIR.DAT"}) {
    order = Order({row}, {upper});
    order.SaveToLocation = Data / (row[0] == 'F' ? "" : "MFF-Backups/1");
    RunBatch(order);
    EXPECT_EQ(Batch.State.FailedFileCount(), 1u) << row;
  }
  EXPECT_EQ(Data.Get("FLURNOPT.DAT"), "options\n");
  EXPECT_EQ(Data.Get("MFF-Backups/1/WFMFFDIR.DAT").substr(0, 10), "11-19-2026");
  // A later pass writes the file itself, whatever the first one does.
  fs::permissions(Files.Path / "seen.txt", fs::perms(0444));
  fs::create_directory(Files.Path / "out");
  order = Order({"seen.txt"}, {upper, upper});
  order.SaveToLocation = Files / "out";
  RunBatch(order);
  EXPECT_EQ(Files.Get("seen.txt"), "x\n");
  // A link that leads to itself ends no run.
  fs::remove(Files.Path / "loop");
  fs::create_symlink("loop", Files.Path / "loop");
  Put({{"good.txt", "x\n"}});
  EXPECT_EQ(RunBatch(Order({"loop", "good.txt"}, {upper})), BatchEnd::Done);
  EXPECT_EQ(Files.Get("good.txt"), "X\n");
}

// What another program writes while the tools work is not overwritten.
TEST_F(AutoConvert, AFileThatChangesMeanwhileIsLeftAlone) {
  const BatchPass pass =
      Custom(u"Slow", {{String(kRunProgram), RunSettings{Files / "program", Files / "a.txt"}}});
  Put({{"a.txt", "old\n"},
       {"program", "#!/bin/sh\necho result >\"$1\"\necho 'from outside' >\"$2\"\n"}});
  fs::permissions(Files.Path / "program", fs::perms::owner_all);
  RunBatch(Order({"a.txt"}, {pass}));
  EXPECT_EQ(Files.Get("a.txt"), "from outside\n");
  EXPECT_EQ(Batch.State.FailedFileCount(), 1u);
}

TEST_F(AutoConvert, ARunThatCannotBeFlushedIsNotCalledDone) {
  Put({{"a.txt", "x\n"}});
  int flushes = 0;
  sys::OnCall = [&](const char* call) {
    return call == std::string("syncfs") && ++flushes > 1 ? EIO : 0;
  };
  const BatchEnd end = RunBatch(Order({"a.txt"}, {{u"All Upper Case"}}));
  sys::OnCall = nullptr;
  EXPECT_GT(flushes, 1);
  EXPECT_EQ(end, BatchEnd::Unsure);
}

}  // namespace
