// The wizard, worked by the members of its windows.

#include <filesystem>

#include "support/app_fixture.h"

namespace {

namespace fs = std::filesystem;
using Rows = std::vector<String>;

KeyEvent Ctrl(char digit) {
  KeyEvent key;
  key.Key = digit;
  key.Control = true;
  return key;
}

class WizardTest : public AppTest {
 protected:
  void SetUp() override {
    Start();
    Windows.OnModal = [this](Form& form) { Answer(form); };
  }

  Wizard& Steps() { return App().Batch.Wizard; }
  MultFileBrowse& Browse() { return Steps().MultFileBrowse; }
  MassConvert2& Tools() { return Steps().MassConvert2; }
  MassConvert4& Last() { return Steps().MassConvert4; }

  // What the test does in each window; a step without one is cancelled.
  std::map<Form*, std::function<void()>> Do;
  std::vector<Form*> Seen;
  void Answer(Form& form) {
    Seen.push_back(&form);
    if (Do.contains(&form)) Do[&form]();
    if (form.Visible) form.CloseByFrame();
  }

  void Press(char digit) {
    KeyEvent key = Ctrl(digit);
    App().KeyDown(key);
  }
  // Step 2 without the others.
  void InBrowse(const std::function<void()>& work) {
    Do[&Browse()] = work;
    Press('2');
  }
  // Step 3 with a file in the list.
  void InTools(const std::function<void()>& work) {
    Browse().List1.List = Rows{Files.Put(u"a.txt", "a")};
    Do[&Tools()] = work;
    Press('3');
  }
  void GoTo(const String& folder) {
    Browse().Dir1.Go(folder);
    Browse().File1.Refresh();
  }
  Rows Names() {
    Rows names;
    for (const String& path : Browse().List1.List.Get())
      names.push_back(path.substr(Files.Path().size() + 1));
    return names;
  }
};

TEST_F(WizardTest, TheWholeWay) {
  for (const auto* name : {u"a.txt", u"b.txt", u"c.doc"}) Files.Put(name, "> Foo food\n");
  Do[&Steps().MassConvert] = [&] { Steps().MassConvert.Command1.Click(); };
  Do[&Browse()] = [&] {
    GoTo(Files.Path());
    Browse().Command8.Click();
    EXPECT_EQ(Names(), (Rows{u"a.txt", u"b.txt"}));
    Browse().Command1.Click();
  };
  Do[&App().Tools.SearchReplaceForm] = [&] {
    SearchReplaceForm& form = App().Tools.SearchReplaceForm;
    form.Text1.Text = u"Foo";
    form.Text2.Text = u"bar";
    form.Check2.Value = 1;
    form.Command1.Click();
  };
  Do[&Tools()] = [&] {
    Tools().Combo1.Text = u"Search and Replace";
    Tools().Command3.Click();
    EXPECT_EQ(Tools().Label8.Caption.Get(), u"\"Foo\" -> \"bar\", whole words");
    Tools().Combo2.Text = u"Remove Leading \">\" Signs";
    Tools().Combo3.Text = u"All Upper Case";
    Tools().Command1.Click();
  };
  Do[&Last()] = [&] {
    Last().txtMFFName.Text = u"  Mine ";
    Last().Command1.Click();
  };
  App().Menu.MultiMenu.Click();
  EXPECT_EQ(BytesOf(Files / u"a.txt"), " BAR FOOD\n");
  EXPECT_EQ(BytesOf(Files / u"b.txt"), " BAR FOOD\n");
  EXPECT_EQ(BytesOf(Files / u"c.doc"), "> Foo food\n");
  EXPECT_TRUE(Windows.Notices.empty());
  ASSERT_TRUE(App().Batch.Windows.State.BatchRunLabel().ends_with(u" (Mine)"));

  // All is there for the next run, but the settings are asked for again.
  Windows.Notices.clear();
  Do[&Tools()] = [&] {
    EXPECT_EQ(Tools().Combo3.Text.Get(), u"All Upper Case");
    Tools().Command1.Click();
    EXPECT_EQ(Windows.Notices.size(), 1u);
    Tools().Command3.Click();
    Tools().Command1.Click();
  };
  Do[&App().Tools.SearchReplaceForm] = [&] {
    EXPECT_EQ(App().Tools.SearchReplaceForm.Text1.Text.Get(), u"Foo");
    App().Tools.SearchReplaceForm.Command1.Click();
  };
  Do[&Last()] = [&] { EXPECT_EQ(Last().txtMFFName.Text.Get(), u"  Mine "); };
  Press('3');
  EXPECT_EQ(Seen.back(), &Last());
  EXPECT_EQ(Last().txtMFFName.Text.Get(), u"") << "cancelled";
  EXPECT_EQ(App().Batch.Windows.Ring.Runs().size(), 1u) << "nothing ran";
}

TEST_F(WizardTest, KeysJumpToTheStepsThatHaveWhatTheyNeed) {
  const auto opens = [&](char digit) -> Form* {
    Seen.clear();
    Press(digit);
    return Seen.empty() ? nullptr : Seen.front();
  };
  EXPECT_EQ(opens('1'), &Steps().MassConvert);
  EXPECT_EQ(opens('2'), &Browse());
  EXPECT_EQ(opens('3'), nullptr);
  EXPECT_EQ(opens('4'), nullptr);
  Browse().List1.List = Rows{u"/a"};
  EXPECT_EQ(opens('4'), nullptr) << "no tool";
  EXPECT_EQ(opens('3'), &Tools());
  Tools().Combo2.Text = u"All Lower Case";
  EXPECT_EQ(opens('4'), &Last());
  EXPECT_EQ(opens('2'), &Browse());
  EXPECT_EQ(Browse().List1.ListCount(), 0) << "Cancel empties the list";
  EXPECT_EQ(opens('4'), nullptr);
}

TEST_F(WizardTest, FilesJoinTheListOnceAndLeaveIt) {
  for (const auto* name : {u"p10.txt", u"p9.TXT", u"x.html", u"y.pl", u".hidden.txt"})
    Files.Put(name, "x");
  InBrowse([&] {
    Browse().Command1.Click();
    EXPECT_TRUE(Windows.Notices.back().starts_with(u"You cannot continue to Step 3"));
    GoTo(Files.Path());
    EXPECT_EQ(Browse().File1.List.Get(), (Rows{u"p9.TXT", u"p10.txt", u"x.html"}));
    Browse().File1.Selected = std::set<int>{1};
    Browse().File1.OnDblClick();
    Browse().Command3.Click();
    Browse().Command8.Click();
    EXPECT_EQ(Names(), (Rows{u"p10.txt", u"p9.TXT", u"x.html"}));
    EXPECT_EQ(Browse().Label3.Caption.Get(), u"3 files");
    Browse().List1.ListIndex = 2;
    Browse().List1.Selected = std::set<int>{0, 2};
    Browse().Command4.Click();
    EXPECT_EQ(Names(), (Rows{u"p9.TXT"}));
    Browse().Command4.Click();
    EXPECT_EQ(Browse().Label3.Caption.Get(), u"1 file") << "no row is selected";
    Browse().Combo1.ListIndex = 4;
    Browse().Command8.Click();
    EXPECT_EQ(Browse().List1.ListCount(), 5);
    Browse().Command5.Click();
    EXPECT_EQ(Browse().List1.ListCount(), 0);
  });
}

TEST_F(WizardTest, FilesOfTheRootHaveOneSeparator) {
  InBrowse([&] {
    Browse().File1.Path = u"/";
    Browse().File1.List = Rows{u"a.txt"};
    Browse().Command8.Click();
    EXPECT_EQ(Browse().List1.List.Get(), Rows{u"/a.txt"});
  });
}

TEST_F(WizardTest, SubfoldersComeWhenTheyAreAskedFor) {
  for (const auto* folder : {"s10", "s9", "s9/in", ".git"})
    fs::create_directory(ToUtf8(Files / FromUtf8(folder)));
  for (const auto* name : {u"s10/a.txt", u"s9/in/b.txt", u"s9/c.txt", u".git/d.txt", u"z.txt"})
    Files.Put(name, "x");
  fs::create_directory_symlink("..", ToUtf8(Files / u"s9/loop"));
  InBrowse([&] {
    GoTo(Files.Path());
    EXPECT_EQ(Browse().Check1.Value, 0);
    Browse().Check1.Click();
    {
      const auto end = Browse().Label3.Caption.Observe([&] {
        if (!Browse().Label3.Caption.Get().starts_with(u"Found")) return;
        EXPECT_FALSE(Browse().Command1.Enabled);
        Browse().Command2.Click();
      });
      Browse().Command8.Click();
    }
    EXPECT_TRUE(Browse().Visible) << "Cancel ends the search alone";
    EXPECT_EQ(Browse().List1.ListCount(), 0);
    Browse().Command8.Click();
    EXPECT_EQ(Names(), (Rows{u"z.txt", u"s9/c.txt", u"s9/in/b.txt", u"s10/a.txt"}));
  });
}

TEST_F(WizardTest, DroppedFoldersAreAskedAboutAndFilesJoin) {
  fs::create_directory(ToUtf8(Files / u"f"));
  fs::create_directory(ToUtf8(Files / u"f/g"));
  for (const auto* name : {u"f/a.txt", u"f/g/b.txt", u"f/c.bin", u"one.bin"}) Files.Put(name, "x");
  const Rows dropped{Files / u"f", Files / u"one.bin", Files / u"missing"};
  InBrowse([&] {
    Windows.Answers = {::Answer::No, ::Answer::Yes};
    Browse().DropFiles(dropped);
    EXPECT_EQ(Names(), Rows{u"one.bin"});
    EXPECT_TRUE(Contains(Windows.Questions.back(), u" 2 files "));
    Browse().DropFiles(dropped);
    EXPECT_EQ(Names(), (Rows{u"one.bin", u"f/a.txt", u"f/g/b.txt"}));
  });
}

TEST_F(WizardTest, ListsComeBackAsTheyWereSaved) {
  const String stray = FromUtf8("stray \xFF\xE9.txt");
  const struct {
    const char* Name;
    Rows Files;
    std::string Begin;
  } cases[] = {
      {"plain", {u"b.txt", u"a.txt"}, ""},
      {"in the code page", {u"caf\u00e9.txt", u"a.txt"}, "caf\xE9.txt\r\n"},
      {"bytes that mean another name", {u"\u00c3\u00a9", u"\u00e9"}, "\xC3\x83\xC2\xA9\r\n"},
      {"no code page", {u"\u4e2d.txt", u"\u00e9"}, "\xE4\xB8\xAD.txt\r\n"},
      {"no characters", {stray, u"\u00e9"}, "stray \xFF\xE9.txt\r\n"},
      {"blanks round it", {u" a ", u"a"}, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    Rows paths;
    for (const String& name : c.Files) paths.push_back(Files.Put(name, "x"));
    InBrowse([&] {
      Browse().List1.List = paths;
      Windows.ChosenFile = Data / u"l.wff";
      Browse().Command7.Click();
      Browse().Command5.Click();
      Browse().Command6.Click();
      EXPECT_EQ(Browse().List1.List.Get(), paths);
    });
    const std::string bytes = BytesOf(Data / u"l.wff");
    EXPECT_EQ(bytes.substr(ToUtf8(Files.Path()).size() + 1).starts_with(c.Begin), true) << bytes;
  }
  EXPECT_TRUE(Windows.Notices.empty());
}

TEST_F(WizardTest, NamesOfAListThatAreGoneAreTold) {
  const String a = Files.Put(u"a", "x"), b = Files.Put(u"b", "x");
  const std::string path = ToUtf8(Files.Path());
  Windows.ChosenFile = Data.Put(u"l.wff", "  " + path + "/b  \r\n\r\n   \r\n" + path + "/gone\r\n" +
                                              path + "/a\r\n" + path + "/b\n" + path + "\r\n");
  InBrowse([&] {
    Do[&Browse().MultFileBad] = [&] {
      MultFileBad& bad = Browse().MultFileBad;
      EXPECT_EQ(bad.Text1.Text.Get(), Files / u"gone" + u"\r\n" + Files.Path());
      EXPECT_FALSE(bad.Command3.Enabled);
      bad.Command1.Click();
      EXPECT_TRUE(Windows.Notices.back().starts_with(u"OK. The file(s) have been removed"));
      fs::remove(ToUtf8(Data / u"l.wff"));
      fs::create_directory(ToUtf8(Data / u"l.wff"));
      bad.Command1.Click();
      EXPECT_TRUE(Windows.Notices.back().starts_with(u"Error encountered while trying"));
      fs::remove(ToUtf8(Data / u"l.wff"));
      bad.Command1.Click();
    };
    Browse().Command6.Click();
    EXPECT_EQ(Browse().List1.List.Get(), (Rows{b, a}));
    EXPECT_EQ(BytesOf(Data / u"l.wff"), ToUtf8(b) + "\r\n" + ToUtf8(a) + "\r\n");
    const std::size_t notices = Windows.Notices.size();
    for (const String& list : {Data.Path(), Data / u"missing.wff"}) {
      Windows.ChosenFile = list;
      Browse().Command6.Click();
      EXPECT_EQ(Browse().List1.ListCount(), 2) << "a list that can't be read changes nothing";
    }
    EXPECT_EQ(Windows.Notices.size(), notices + 2);
    Windows.ChosenFile.reset();
    Browse().Command6.Click();
    Browse().Command7.Click();
    EXPECT_EQ(Windows.Notices.size(), notices + 2) << "Cancel is silent";
    Browse().Command5.Click();
    Browse().Command7.Click();
    EXPECT_TRUE(Windows.Notices.back().starts_with(u"You have not selected any files"));
  });
}

TEST_F(WizardTest, FoldersAndVolumesThatGo) {
  fs::create_directories(ToUtf8(Files / u"in/side"));
  Files.Put(u"a.txt", "x");
  InBrowse([&] {
    GoTo(Files / u"in/side");
    fs::remove_all(ToUtf8(Files / u"in"));
    Browse().Activated();
    EXPECT_EQ(Browse().Dir1.Path.Get(), Files.Path());
    EXPECT_EQ(Browse().File1.List.Get(), Rows{u"a.txt"});
    Files.Put(u"b.txt", "x");
    Browse().Activated();
    EXPECT_EQ(Browse().File1.ListCount(), 2);
    const String drive = Browse().Drive1.Drive;
    Browse().Drive1.List = Rows{drive, Files / u"gone"};
    Browse().Drive1.Drive = Files / u"gone";
    EXPECT_EQ(Windows.Notices.back(), u" There is no disk in the drive / device unavailable.");
    EXPECT_EQ(Browse().Dir1.Path.Get(), Files.Path());
    EXPECT_EQ(Browse().Drive1.Drive.Get(), drive);
  });
}

TEST_F(WizardTest, SettingsOfARow) {
  AddCarriageForm& add = App().Tools.AddCarriageForm;
  bool ok = true;
  String position;
  Do[&add] = [&] {
    if (!position.empty()) add.Text1.Text = position;
    (ok ? add.Command1 : add.Command2).Click();
  };
  InTools([&] {
    MassConvert2& form = Tools();
    const auto refused = [&](StringView begin) {
      Windows.Notices.clear();
      form.Command1.Click();
      return !Windows.Notices.empty() && Windows.Notices.back().starts_with(begin);
    };
    const String needs = u"The tool you have selected for Tool #2 requires additional information.";
    EXPECT_TRUE(refused(u"You must select at least 1 tool"));
    EXPECT_FALSE(form.Command4.Enabled);
    form.Combo2.Text = u"Add Trailing Carriage Returns";
    EXPECT_EQ(form.Label9.Caption.Get(), u"not set yet");
    EXPECT_TRUE(refused(needs));
    ok = false;
    position = u"40";
    form.Command4.Click();
    EXPECT_TRUE(refused(needs)) << "a cancelled window gives nothing";
    EXPECT_EQ(add.Text1.Text.Get(), u"76");
    ok = true;
    form.Command4.Click();
    EXPECT_EQ(form.Label9.Caption.Get(), u"position 40, to the nearest word");
    ok = false;
    position = u"50";
    form.Command4.Click();
    EXPECT_EQ(std::get<AddSettings>(*form.Passes()[1].Settings).Position, u"40");
    // Away and back: what was kept has gone, and the window's own settings count.
    form.Combo2.Text = u"All Lower Case";
    EXPECT_EQ(form.Label9.Caption.Get(), u"");
    form.Combo2.Text = u"Add Trailing Carriage Returns";
    EXPECT_FALSE(form.Passes()[1].Settings);
    EXPECT_EQ(form.Label9.Caption.Get(), u"position 40, to the nearest word");
    Do[&Last()] = [&] { EXPECT_TRUE(Windows.Notices.empty()); };
    EXPECT_FALSE(refused(u""));
    EXPECT_EQ(Seen.back(), &Last());
    EXPECT_FALSE(form.SettingsGiven2);
  });
}

TEST_F(WizardTest, ToolsThatAreOffered) {
  for (const StringView name : {u"my tool", u"old & new"})
    App().Editors.Listed.Append([name](int) { return CustomTool{String(name), {}}; });
  InTools([&] {
    const Rows rows = Tools().Combo3.List;
    ASSERT_EQ(rows.size(), 23u);
    EXPECT_EQ(rows[0], u"None Selected");
    EXPECT_EQ(rows[1], u"Remove Trailing Carriage Returns");
    EXPECT_EQ(rows[11], u"Remove Leading \">\" Signs");
    EXPECT_EQ(rows[20], u"Email Cleanup - Poem or List");
    EXPECT_EQ(rows[21], u"Custom Tool: My Tool");
    EXPECT_EQ(rows[22], u"Custom Tool: Old & New");
    EXPECT_EQ(Tools().Combo1.List.Get(), rows);
    Tools().Combo1.Text = u"Custom Tool: Old & New";
    Tools().Combo2.Text = u"Search and Replace";
    CustomToolEditors& editors = App().Editors;
    Do[&editors.EditTool1] = [&] {
      EXPECT_EQ(Tools().Combo2.Text.Get(), u"Search and Replace") << "looking changes nothing";
      editors.EditTool1.Combo1.ListIndex = 0;
      editors.EditTool1.Command1.Click();
    };
    Do[&editors.EditTool2] = [&] {
      Windows.Answers = {::Answer::Yes};
      editors.EditTool2.Command8.Click();
    };
    editors.EditTool1.Begin();
    EXPECT_EQ(Tools().Combo3.ListCount(), 22);
    EXPECT_EQ(Tools().Combo1.Text.Get(), u"None Selected");
    EXPECT_EQ(Tools().Combo2.Text.Get(), u"None Selected");
  });
}

TEST_F(WizardTest, SettingsInOneLine) {
  const String longText(60, u'x');
  const struct {
    SearchSettings Settings;
    StringView Line;
  } cases[] = {
      {{u"a\r\nb\tc", u"", false, false, true}, u"\"a\u21B5b c\" -> \"\", match case"},
      {{u"65 66", u"67", true, false, false}, u"\"65 66\" -> \"67\", ASCII codes"},
      {{longText, u"", false, false, false}, u"\"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\u2026"},
  };
  InTools([&] {
    Tools().Combo1.Text = u"Search and Replace";
    for (const auto& c : cases) {
      Do[&App().Tools.SearchReplaceForm] = [&] {
        App().Tools.SearchReplaceForm.Use(c.Settings);
        App().Tools.SearchReplaceForm.Command1.Click();
      };
      Tools().Command3.Click();
      EXPECT_EQ(Tools().Label8.Caption.Get(), c.Line);
    }
    EXPECT_TRUE(Contains(Tools().Label8.ToolTipText.Get(), longText));
  });
}

TEST_F(WizardTest, NamesOfARun) {
  const struct {
    StringView Name;
    bool Starts;
  } cases[] = {{u"", true}, {u"   ", true}, {u" abc ", false}, {u"abcd", true}, {u"a<TO>b", false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(ToUtf8(c.Name));
    Windows.Notices.clear();
    Last().txtMFFName.Text = String(c.Name);
    Last().StartClicked = false;
    Last().Command1.Click();
    EXPECT_EQ(Last().StartClicked, c.Starts);
    EXPECT_EQ(Windows.Notices.empty(), c.Starts);
  }
}

}  // namespace
