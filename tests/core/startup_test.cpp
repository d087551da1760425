// What stands after the start: paths, options, custom tools, work files.

#include <set>

#include "core/command_line.h"
#include "state/data_files.h"
#include "support/app_fixture.h"

using namespace std::string_literals;

namespace {

class StartTest : public AppTest {};

TEST_F(StartTest, WorkFilesOfAnEarlierRunAreGone) {
  const StringView names[] = {u"WFTEMP1.DAT", u"WFTEMP2.DAT", u"WFTEMP3.DAT",
                              u"WFTEMP4.DAT", u"WFTEMP5.DAT", u"WFHTMLTEMP.html"};
  for (const StringView name : names) Data.Put(name, "left over");
  Start();
  for (const StringView name : names) EXPECT_FALSE(FileExists(Data / name));
  const String work = FolderOf(App().Fields.TempFile1);
  for (const StringView name : names) WriteWorkFile(JoinPath(work, name), u"of this run");
  App().Menu.ExitMenu.Click();
  for (const StringView name : names) EXPECT_FALSE(FileExists(JoinPath(work, name)));
  EXPECT_EQ(Windows.QuitStatus, 0);
}

TEST(DataPaths, NoSeparatorIsDoubled) {
  SharedFields fields;
  SetDataPaths(fields, u"/", u"/home/me/WFTEMP-7");
  EXPECT_EQ(fields.OptionsFile, u"/FLURNOPT.DAT");
  EXPECT_EQ(fields.TempFile5, u"/home/me/WFTEMP-7/WFTEMP5.DAT");
}

TEST_F(StartTest, CustomToolsStandOnTheMenu) {
  const String longName = u"A && X" + String(79, u'x');
  struct Case {
    const char* Name;
    std::string File;
    std::vector<std::pair<int, StringView>> Shown;
    int Count;
  };
  const Case cases[] = {
      {"none", "", {}, 0},
      {"two",
       "Tool1:\r\nmy FIRST tool\r\nx\r\nTool2:\r\nb\r\n",
       {{1, u"My First Tool"}, {2, u"B"}},
       2},
      {"third alone", "Tool3:\nclean\n", {{3, u"Clean"}}, 3},
      {"last one counts", "Tool2:\r\nb\r\nTool1:\r\na\r\n", {{1, u"A"}, {2, u"B"}}, 1},
      {"no such number", "Tool0:\nx\nTool9:\nx\ntool1:\nx\nTool1: \nx\n", {}, 0},
      {"name that looks like a key", "Tool1:\nTool2:\nTool3:\nz\n", {{1, u"Tool2:"}, {3, u"Z"}}, 3},
      {"& and a long name", "Tool1:\na & " + std::string(80, 'x'), {{1, longName}}, 1},
      {"cut off behind the key", "Tool1:\na\nTool2:", {{1, u"A"}}, 1},
      {"no text at all", "\xFF\xFE\0Tool1:\0\x80\r\n\r\r\n"s, {}, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Name);
    Data.Put(u"FLURNCUS.DAT", c.File);
    Start();
    std::vector<std::pair<int, StringView>> shown;
    for (int i = 0; i < kMostCustomTools; ++i) {
      const MenuItem& item = App().Menu.CustMenus[i];
      if (item.Visible) shown.emplace_back(i + 1, item.Caption.Get());
    }
    EXPECT_EQ(shown, c.Shown);
    EXPECT_EQ(App().Fields.CustomToolCount, c.Count);
  }
}

TEST_F(StartTest, OptionsOrTheDefaults) {
  const String header = Files.Put(u"header.html", "<html>");
  const std::string folder = ToUtf8(Files.Path());
  const std::string good = "Courier\r\n10\r\nTrue\r\nArial\r\n9\r\nFalse\r\n" + folder + "\r\n" +
                           ToUtf8(header) + "\r\n\r\n";
  struct Case {
    const char* Name;
    std::string File;
    bool Good;
  };
  const Case cases[] = {
      {"good", good, true},
      {"good with LF",
       "Courier\n10\nTrue\nArial\n9\nFalse\n" + folder + "\n" + ToUtf8(header) + "\n\n", true},
      {"empty", "", false},
      {"eight lines", good.substr(0, good.size() - 2), false},
      {"no number", "Courier\nten\nTrue\nArial\n9\nFalse\n\n\n\n", false},
      {"folder gone", "Courier\n10\nTrue\nArial\n9\nFalse\n/no/such\n\n\n", false},
      {"footer gone", "Courier\n10\nTrue\nArial\n9\nFalse\n\n\n/no/such\n", false},
      {"random bytes", "\0\x80\xFF\r\r\n\xC3\x28\n\n\n\n\n\n\n\n\n"s, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Name);
    Data.Put(u"FLURNOPT.DAT", c.File);
    const String here = CurrentFolder();
    ChangeCase& app = Start();
    EXPECT_EQ(CurrentFolder(), here);
    EXPECT_EQ(app.RichTextBox1.Font.Get(),
              c.Good ? (TextFont{u"Courier", 10, true}) : (TextFont{u"Terminal", 12, false}));
    EXPECT_EQ(app.RichTextBox2.Font.Get(),
              c.Good ? (TextFont{u"Arial", 9, false}) : (TextFont{u"Times New Roman", 14, false}));
    EXPECT_EQ(app.Fields.DefaultHeaderFile, c.Good ? header : u"");
    if (c.Good) {
      EXPECT_EQ(app.CommonDialog1.InitDir, Files.Path());
      EXPECT_EQ(app.Tools.HTML.CommonDialog1.InitDir, Files.Path());
    }
    EXPECT_FALSE(app.Fields.TextChanged);
    EXPECT_TRUE(Windows.Notices.empty());
  }
}

TEST(CommandLine, FileStandsInFrontOfTheSwitches) {
  struct Case {
    std::vector<String> Arguments;
    StringView File;
    bool Eof;
    // What is there, where the names alone don't say.
    std::set<String> Files = {};
  };
  const Case cases[] = {
      {{}, u"", false},
      {{u"a.txt"}, u"a.txt", false},
      {{u"my", u"notes.txt", u"/eof"}, u"my notes.txt", true},
      {{u"my notes.txt", u"/EOF/NOSPLASH"}, u"my notes.txt", true},
      {{u"\"quoted.txt\"", u"/NOSPLASH"}, u"quoted.txt", false},
      {{u"/srv/eof/a.txt"}, u"/srv/eof/a.txt", false},
      {{u"/srv/eof/a.txt", u"/EOF"}, u"/srv/eof/a.txt", true},
      {{u"/NOSPLASH"}, u"", false},
      {{u"  a.txt  /EoF"}, u"a.txt", true},
      {{u"trail ", u"/EOF"}, u"trail ", true},
      {{u" lead"}, u" lead", false},
      {{u"a.txt /EOF"}, u"a.txt /EOF", false, {u"a.txt /EOF"}},
      {{u"\"a\"", u"/EOF"}, u"\"a\"", true, {u"\"a\"", u"a"}},
      {{u"\"a\"", u"/EOF"}, u"a", true, {u"a"}},
      {{u"my\"f.txt", u"/EOF"}, u"my\"f.txt", true},
      {{u"a", u"b", u"/EOF"}, u"a b", true},
      {{u"a", u"b", u"/EOF"}, u"a", true, {u"a", u"b"}},
      {{u"a", u"b"}, u"a b", false, {u"a", u"b", u"a b"}},
  };
  for (const Case& c : cases) {
    const auto exists = [&c](const String& path) { return c.Files.contains(path); };
    const String line = JoinArguments(c.Arguments, exists).Text;
    SCOPED_TRACE(ToUtf8(line));
    EXPECT_EQ(FileArgument(line), c.File);
    EXPECT_EQ(HasSwitch(line, Word::Eof), c.Eof);
  }
  const auto exists = [](const String&) { return true; };
  EXPECT_THROW(JoinArguments({u"a\" /EOF \"b"}, exists), RefusedCommandLine);
  EXPECT_THROW(JoinArguments({u"a", u"/USEALL:a\" /EOF \"b"}, exists), RefusedCommandLine);
}

TEST(CommandLine, ValuesEndAtTheNextSwitch) {
  struct Case {
    std::vector<String> Arguments;
    Word Switch;
    StringView Value;
    bool Exists = false;
  };
  const Case cases[] = {
      {{u"a", u"/AUTO:Clean", u"Mail", u"/eof"}, Word::Auto, u"Clean Mail"},
      {{u"a", u"/AUTO: \"Clean /EOF Mail\" /EOF"}, Word::Auto, u"Clean /EOF Mail"},
      {{u"a", u"/AUTO:\"Quick\" fix"}, Word::Auto, u"\"Quick\" fix"},
      {{u"a", u"/AUTO:\"x"}, Word::Auto, u"\"x"},
      {{u"my\"f.txt", u"/AUTO:in\"x"}, Word::Auto, u"in\"x"},
      {{u"a", u"/AUTO:a/b"}, Word::Auto, u"a/b"},
      {{u"a", u"/AUTO:a/EOF"}, Word::Auto, u"a"},
      {{u"a", u"/SAVETOLOCATION:/srv/eof/x", u"/EOF"}, Word::SaveToLocation, u"/srv/eof/x"},
      {{u"a", u"/SaveToLocation:/eof"}, Word::SaveToLocation, u"/eof"},
      {{u"a", u"/SAVETOLOCATION:/srv/x /EOF"}, Word::SaveToLocation, u"/srv/x"},
      {{u"a", u"/SAVETOLOCATION:x "}, Word::SaveToLocation, u"x "},
      {{u"a", u"/USEALL:my /EOF"}, Word::UseAll, u"my", false},
      {{u"a", u"/USEALL:my /EOF"}, Word::UseAll, u"my /EOF", true},
      {{u"a", u"/EOF"}, Word::Auto, u""},
      {{u"a", u"/ADDPREFIX:new- old"}, Word::AddPrefix, u"new-"},
      {{u"a", u"/ADDPREFIX:\"new old \" x"}, Word::AddPrefix, u"new old "},
      {{u"a", u"/ADDPREFIX:"}, Word::AddPrefix, u""},
  };
  for (const Case& c : cases) {
    const auto exists = [&c](const String&) { return c.Exists; };
    const String line = JoinArguments(c.Arguments, exists).Text;
    SCOPED_TRACE(ToUtf8(line));
    EXPECT_EQ(SwitchValue(line, c.Switch), c.Value);
  }
}

}  // namespace
