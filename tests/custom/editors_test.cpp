// The windows that make, change and delete custom tools, worked by their members.

#include <filesystem>

#include "custom/custom_tool_record.h"
#include "support/app_fixture.h"

namespace {

constexpr StringView kUpper = u"All Upper Case";
const String kNone(kNoTool);

String NeedsSettings(int step) {
  return u"The tool you have selected for Tool #" + Str(step) +
         u" requires additional information.  You need to click the settings button next to that "
         u"tool to tell it what it should do when this custom tool is used.";
}

class EditorsTest : public AppTest {
 protected:
  void SetUp() override {
    Start();
    Windows.OnModal = [this](Form& form) {
      CustomToolEditors& editors = App().Editors;
      if (&form == &editors.CreateTool) {
        inCreate_(editors.CreateTool);
      } else if (&form == &editors.EditTool1) {
        editors.EditTool1.Combo1.ListIndex = choice_ - 1;
        if (beforeChoice_) std::exchange(beforeChoice_, nullptr)();
        editors.EditTool1.Command1.Click();
        if (form.Visible) editors.EditTool1.Command1.Click();
      } else if (&form == &editors.EditTool2) {
        inEdit_(editors.EditTool2);
      } else {
        inSettings_(dynamic_cast<SettingsForm&>(form));
      }
      if (form.Visible) form.CloseByFrame();
    };
  }

  // Each uses the menu entry and closes what the work has left open.
  void Create(const std::function<void(CreateTool&)>& work) {
    inCreate_ = work;
    App().Menu.CreateCustMenu.Click();
  }
  void Edit(int number, const std::function<void(EditTool2&)>& work) {
    choice_ = number;
    inEdit_ = work;
    App().Menu.EditCustMenu.Click();
  }
  // Gives settings in the window that the button opens, or cancels it with them typed.
  void Give(CommandButton& button, const ToolSettings& values, bool ok = true) {
    inSettings_ = [&values, ok](SettingsForm& form) {
      form.Use(values);
      ok ? (void)form.AnswerUnattended() : form.CloseByFrame();
    };
    button.Click();
  }
  void CreateNamed(const String& name, StringView first = kUpper) {
    Create([&](CreateTool& form) {
      form.Text1.Text = name;
      form.Combo1.Text = String(first);
      form.Command1.Click();
    });
  }
  // What another program makes of the file.
  void PutFile(const std::vector<CustomTool>& tools) {
    std::vector<String> lines;
    int number = 0;
    for (const CustomTool& tool : tools) {
      for (String& line : RecordLines(tool, ++number)) lines.push_back(std::move(line));
    }
    WriteDataFile(path_, lines);
  }
  CustomTool Stored(int number) { return ReadRecord(ReadDataFile(path_), number); }
  std::string File() { return FileExists(path_) ? BytesOf(path_) : "none"; }
  std::vector<String> Shown() {
    std::vector<String> names;
    for (const MenuItem& item : App().Menu.CustMenus) {
      if (item.Visible) names.push_back(item.Caption);
    }
    return names;
  }

  String path_ = Data / u"FLURNCUS.DAT";
  int choice_ = 1;
  std::function<void()> beforeChoice_;
  std::function<void(CreateTool&)> inCreate_;
  std::function<void(EditTool2&)> inEdit_;
  std::function<void(SettingsForm&)> inSettings_;
};

TEST_F(EditorsTest, AToolOfFiveStepsIsMadeRunChangedAndDeleted) {
  EXPECT_FALSE(App().Menu.hyphen7.Visible);
  Create([this](CreateTool& form) {
    EXPECT_EQ(form.Text1.Text, u"Custom Tool #1");
    form.Text1.Text = u" fix my MAIL ";
    form.Combo1.Text = u"Search and Replace";
    Give(form.Command3,
         SearchSettings{.SearchFor = u"a\r\nb", .ReplaceWith = u"c", .MatchCase = true});
    form.Combo2.Text = u"Add Trailing Carriage Returns";
    Give(form.Command4, AddSettings{u"60", true});
    form.Check2.Value = 1;
    form.Combo3.Text = u"Convert TO HTML";
    Give(form.Command5, HtmlSettings{u"Default", u"f.html", true, false});
    form.Combo4.Text = u"Run Program";
    Give(form.Command6, RunSettings{u"/bin/true", u"-x"});
    form.Combo5.Text = String(kUpper);
    form.Command1.Click();
    EXPECT_FALSE(form.Visible);
  });
  EXPECT_EQ(File(),
            "Tool1:\r\nfix my MAIL\r\nSearch and Replace\r\nAdd Trailing Carriage Returns\r\n"
            "Convert TO HTML\r\nRun Program\r\nAll Upper Case\r\n"
            "Search1-1:\r\n0\r\n<<BEGINSEARCHTEXT>>a\r\nb<<ENDSEARCHTEXT>>\r\n"
            "<<BEGINREPLACETEXT>>c<<ENDREPLACETEXT>>\r\n0\r\n0\r\n1\r\n"
            "Add1-2:\r\n1\r\n60\r\n1\r\nHTML1-3:\r\n0\r\nDefault\r\nf.html\r\n1\r\n0\r\n"
            "RunProgram1-4:\r\n/bin/true\r\n-x\r\n");
  EXPECT_EQ(Shown(), std::vector<String>{u"Fix My Mail"});
  EXPECT_TRUE(App().Menu.hyphen7.Visible);
  EXPECT_TRUE(App().Command5.Enabled);

  // The settings show again, a step is left out, and the name keeps its capitals.
  const std::string made = File();
  Windows.Answers = {Answer::No, Answer::Cancel, Answer::Yes};
  Edit(1, [&](EditTool2& form) {
    EXPECT_EQ(form.Text1.Text, u"Fix My Mail");
    EXPECT_EQ(form.Combo3.Text, u"Convert TO HTML");
    EXPECT_EQ(form.Check2.Value, 1);
    EXPECT_FALSE(form.Label8.Visible);
    inSettings_ = [](SettingsForm& settings) {
      EXPECT_EQ(std::get<AddSettings>(settings.Settings()).Position, u"60");
      settings.CloseByFrame();
    };
    form.Command4.Click();
    form.Combo1.Text = kNone;
    form.Combo3.Text = kNone;
    form.Combo4.Text = kNone;
    form.Check2.Value = 0;
    form.Command1.Click();
    form.Command1.Click();
    EXPECT_TRUE(form.Visible);
    EXPECT_EQ(File(), made);
    form.Command1.Click();
    EXPECT_FALSE(form.Visible);
  });
  EXPECT_EQ(File(),
            "Tool1:\r\nFix My Mail\r\nNone Selected\r\nAdd Trailing Carriage Returns\r\n"
            "None Selected\r\nNone Selected\r\nAll Upper Case\r\nAdd1-2:\r\n0\r\n60\r\n1\r\n");
  App().RichTextBox1.SetText(u"one");
  App().Menu.CustMenus[0].Click();
  EXPECT_EQ(App().RichTextBox1.Text(), u"ONE\r\n");

  Windows.Answers = {Answer::No, Answer::Yes};
  Edit(1, [&](EditTool2& form) {
    form.Text1.Text = u"other";
    form.Command8.Click();
    EXPECT_TRUE(FileExists(path_));
    form.Command8.Click();
  });
  EXPECT_EQ(File(), "none");
  std::vector<String> questions(3, u"Are you sure you want to modify tool: Fix My Mail?");
  questions.resize(5, u"Are you sure you want to delete tool: other?");
  EXPECT_EQ(Windows.Questions, questions);
}

TEST_F(EditorsTest, NamesAndNumbers) {
  struct Case {
    StringView Typed, Stored, Shown;
  };
  const Case cases[] = {
      {u"", u"Custom Tool #1", u"Custom Tool #1"},
      {u"  ", u"Custom Tool #2", u"Custom Tool #2"},
      {u" fix my MAIL", u"fix my MAIL", u"Fix My Mail"},
      {u"R&D \u00E9t\u00E9", u"R&D \u00E9t\u00E9", u"R&&d \u00C9t\u00E9"},
      {u"R&D \u00E9t\u00E9", u"R&D \u00E9t\u00E9", u"R&&d \u00C9t\u00E9"},
      {u"\u65E5\u672C \U0001F600", u"\u65E5\u672C \U0001F600", u"\u65E5\u672C \U0001F600"},
      {u"Tool1:", u"Tool1:", u"Tool1:"},
      {u"Custom Tool #3", u"Custom Tool #3", u"Custom Tool #3"},
  };
  std::vector<String> shown;
  for (const Case& c : cases) {
    CreateNamed(String(c.Typed));
    shown.emplace_back(c.Shown);
    EXPECT_EQ(Stored(static_cast<int>(shown.size())).Name, c.Stored);
    EXPECT_EQ(Shown(), shown);
  }
  EXPECT_TRUE(Windows.Notices.empty());
  Create([](CreateTool&) { ADD_FAILURE() << "there is no room for a ninth"; });
  EXPECT_EQ(Windows.Notices.size(), 1u);

  Windows.Answers.assign(3, Answer::Yes);
  Edit(1, [](EditTool2& form) { form.Command8.Click(); });
  shown = Shown();
  ASSERT_EQ(shown.size(), 7u);
  EXPECT_EQ(shown[0], u"Custom Tool #1");
  EXPECT_EQ(shown[6], u"Custom Tool #2");
  Edit(2, [](EditTool2& form) { form.Command1.Click(); });
  EXPECT_EQ(Stored(2).Name, u"Fix My Mail");
  Edit(2, [](EditTool2& form) {
    form.Text1.Text = u" ";
    form.Command1.Click();
  });
  EXPECT_EQ(Stored(2).Name, u"Custom Tool #8");
  EXPECT_EQ(App().Fields.CustomToolCount, 7);
}

TEST_F(EditorsTest, ClicksOnTheNameSelectItAndClearTheSelection) {
  Create([](CreateTool& form) {
    for (const int length : {14, 0, 14}) {
      form.Text1.Click();
      EXPECT_EQ(form.Text1.SelLength, length);
    }
  });
}

TEST_F(EditorsTest, EveryStepHasTheSettingsThatItNeeds) {
  const String search(kSearchAndReplace), add(kAddCarriageReturns), run(kRunProgram), upper(kUpper);
  // Chosen in the third row: tools, and between them "ok" and "cancel" of the settings window.
  const struct {
    std::vector<String> Done;
    bool Complete;
    bool CanShow;
  } cases[] = {
      {{upper}, true, false},
      {{search}, false, true},
      {{search, u"cancel"}, false, true},
      {{search, u"ok"}, true, true},
      {{search, u"ok", u"cancel"}, true, true},
      {{search, u"cancel", u"ok"}, true, true},
      {{search, u"ok", upper, search}, false, true},
      {{search, u"ok", upper}, true, false},
      {{search, u"ok", add}, false, true},
      {{search, u"ok", add, u"cancel"}, false, true},
      {{search, u"ok", add, u"ok"}, true, true},
      {{search, u"ok", add, search}, false, true},
      {{run}, false, false},
      {{run, u"cancel"}, false, false},
      {{run, u"ok"}, true, false},
      {{run, u"ok", kNone}, true, false},
  };
  for (const auto& c : cases) {
    String name;
    for (const String& done : c.Done) name += done + u", ";
    SCOPED_TRACE(ToUtf8(name));
    Windows.Notices.clear();
    DeleteFile(Data.Put(u"FLURNCUS.DAT", ""));
    Create([&](CreateTool& form) {
      EXPECT_FALSE(form.Command5.Enabled || form.Check3.Enabled);
      EXPECT_EQ(form.Check3.Value, 0);
      form.Check3.Value = 1;
      for (const String& done : c.Done) {
        const bool ok = done == u"ok";
        if (!ok && done != u"cancel") {
          form.Combo3.Text = done;
        } else if (form.Combo3.Text == add) {
          Give(form.Command5, AddSettings{u"9"}, ok);
        } else if (form.Combo3.Text == run) {
          Give(form.Command5, RunSettings{u"p"}, ok);
        } else {
          Give(form.Command5, SearchSettings{.SearchFor = ok ? u"good" : u"typed"}, ok);
        }
      }
      const String tool = form.Combo3.Text;
      EXPECT_EQ(form.Command5.Enabled, FindTool(tool) && FindTool(tool)->Settings);
      EXPECT_EQ(form.Check3.Enabled, c.CanShow);
      EXPECT_EQ(form.Check3.Value, 1);
      form.Command1.Click();
      EXPECT_EQ(form.Visible, !c.Complete);
    });
    EXPECT_EQ(FileExists(path_), c.Complete);
    EXPECT_EQ(Windows.Notices, std::vector<String>(c.Complete ? 0 : 1, NeedsSettings(3)));
    if (!c.Complete) continue;
    const ToolStep step = Stored(1).Steps[2];
    EXPECT_EQ(step.ShowSettings, c.CanShow);
    const auto* values = std::get_if<SearchSettings>(&step.Settings);
    EXPECT_TRUE(values == nullptr || values->SearchFor == u"good");
  }
}

TEST_F(EditorsTest, SettingsWindowsOfferTheRowsValuesAndThenTheUsers) {
  ToolState& tools = App().Tools;
  tools.SearchReplaceForm.Text1.Text = u"of the user";
  Create([&](CreateTool& form) {
    form.Combo1.Text = form.Combo2.Text = String(kSearchAndReplace);
    Give(form.Command3, SearchSettings{.SearchFor = u"first"});
    Give(form.Command4, SearchSettings{.SearchFor = u"second"});
    inSettings_ = [&](SettingsForm& settings) {
      EXPECT_EQ(tools.SearchReplaceForm.Text1.Text, u"first");
      tools.SearchReplaceForm.Text1.Text = u"refused";
      settings.CloseByFrame();
    };
    form.Command3.Click();
    EXPECT_EQ(tools.SearchReplaceForm.Text1.Text, u"first");
    form.Combo3.Text = String(kRunProgram);
    for (const bool ok : {true, false}) {
      Give(form.Command5, RunSettings{u"program", u"arguments"}, ok);
      EXPECT_EQ(tools.RunProgramSettings.Text1.Text, u"");
      EXPECT_EQ(tools.RunProgramSettings.Text2.Text, u"");
    }
    form.Command1.Click();
  });
  EXPECT_EQ(std::get<SearchSettings>(Stored(1).Steps[0].Settings).SearchFor, u"first");
  EXPECT_EQ(std::get<SearchSettings>(Stored(1).Steps[1].Settings).SearchFor, u"second");
  EXPECT_EQ(std::get<RunSettings>(Stored(1).Steps[2].Settings).Arguments, u"arguments");
}

TEST_F(EditorsTest, LargeTextsComeBack) {
  SearchSettings values;
  for (int i = 0; i < 50'000; ++i) values.SearchFor += u"x\r\n\u00E9";
  values.ReplaceWith = values.SearchFor + u"Tool1: <<BEGINSEARCHTEXT>>";
  Create([&](CreateTool& form) {
    form.Combo1.Text = String(kSearchAndReplace);
    Give(form.Command3, values);
    form.Command1.Click();
  });
  Windows.Answers = {Answer::Yes};
  Edit(1, [](EditTool2& form) { form.Command1.Click(); });
  const auto stored = std::get<SearchSettings>(Stored(1).Steps[0].Settings);
  EXPECT_TRUE(stored.SearchFor == values.SearchFor);
  EXPECT_TRUE(stored.ReplaceWith == values.ReplaceWith);
}

CustomTool Named(StringView name, StringView step = kUpper) {
  CustomTool tool;
  tool.Name = name;
  tool.Steps[0].Name = step;
  return tool;
}

// While the second of three tools is being edited.
TEST_F(EditorsTest, WhatAnotherProgramHasChangedIsNotWrittenOver) {
  const CustomTool a = Named(u"A"), b = Named(u"B"), c = Named(u"C");
  const struct {
    const char* Name;
    std::function<void()> Change;
    // After the second try; the tools that there are then otherwise.
    bool Modified;
  } cases[] = {
      {"one more",
       [&] {
         PutFile({a, b, c, Named(u"D")});
       },
       true},
      {"another one is changed",
       [&] {
         PutFile({a, b, Named(u"C", u"All Lower Case")});
       },
       true},
      {"it is changed",
       [&] {
         PutFile({a, Named(u"B", u"All Lower Case"), c});
       },
       true},
      {"it has another name",
       [&] {
         PutFile({a, Named(u"X"), c});
       },
       false},
      {"it has moved",
       [&] {
         PutFile({b, c});
       },
       false},
      {"it is gone", [&] { PutFile({a}); }, false},
      {"all are gone", [&] { DeleteFile(path_); }, false},
      {"no text", [&] { Data.Put(u"FLURNCUS.DAT", std::string("\xFF\xFE\0\0\x80", 5)); }, false},
      {"a folder", [&] { DeleteFile(path_), std::filesystem::create_directory(ToUtf8(path_)); },
       false},
  };
  for (const auto& k : cases) {
    for (const bool deletes : {false, true}) {
      SCOPED_TRACE(k.Name + std::string(deletes ? ", delete" : ", modify"));
      std::filesystem::remove_all(ToUtf8(path_));
      PutFile({a, b, c});
      Windows.Notices.clear();
      Windows.Answers.assign(2, Answer::Yes);
      std::string changed;
      Edit(2, [&](EditTool2& form) {
        ASSERT_EQ(form.Text1.Text, u"B");
        form.Text1.Text = u"Mine";
        k.Change();
        changed = File();
        CommandButton& button = deletes ? form.Command8 : form.Command1;
        button.Click();
        EXPECT_EQ(Windows.Notices.size(), 1u);
        EXPECT_TRUE(form.Visible);
        EXPECT_EQ(File(), changed);
        EXPECT_EQ(Shown().size(), ReadCustomToolNames(path_).Names.size());
        button.Click();
        EXPECT_EQ(form.Visible, !k.Modified);
      });
      EXPECT_EQ(Windows.Notices.size(), k.Modified ? 1u : 2u);
      EXPECT_EQ(File() == changed, !k.Modified);
      EXPECT_TRUE(!k.Modified || Shown()[1] == (deletes ? u"C" : u"Mine"));
    }
  }
}

TEST_F(EditorsTest, AChoiceFromAnOldListIsMadeAnew) {
  PutFile({Named(u"A"), Named(u"B")});
  beforeChoice_ = [&] { PutFile({Named(u"B"), Named(u"A")}); };
  Edit(2, [](EditTool2& form) { EXPECT_EQ(form.Text1.Text, u"B"); });
  EXPECT_EQ(Windows.Notices.size(), 1u);
}

TEST_F(EditorsTest, ANewToolComesBehindThoseOfAnotherProgram) {
  Create([&](CreateTool& form) {
    PutFile({Named(u"A"), Named(u"B")});
    form.Command1.Click();
  });
  EXPECT_EQ(Shown(), (std::vector<String>{u"A", u"B", u"Custom Tool #1"}));
  Create([&](CreateTool& form) {
    PutFile(std::vector<CustomTool>(8, Named(u"A")));
    const std::string full = File();
    form.Command1.Click();
    EXPECT_TRUE(form.Visible);
    EXPECT_EQ(File(), full);
  });
  // What can't be written is told, and the steps stay.
  DeleteFile(path_);
  Create([&](CreateTool& form) {
    std::filesystem::create_directory(ToUtf8(path_));
    form.Combo2.Text = String(kUpper);
    form.Command1.Click();
    EXPECT_TRUE(form.Visible);
    EXPECT_EQ(form.Combo2.Text, kUpper);
  });
  EXPECT_EQ(Windows.Notices.size(), 2u);
}

TEST_F(EditorsTest, DamagedToolsAreShownEmptyAndNotMixedUp) {
  const std::string none = "None Selected\n";
  const struct {
    const char* Name;
    std::string File;
    int Number;
    bool MayBeModified;
  } cases[] = {
      {"unknown step", "Tool1:\nA\nAll Upper Case\nno such\n" + none + none + none, 1, true},
      {"step that is not offered",
       "Tool1:\nA\nCapitalize Custom Words\n" + none + none + none + none, 1, true},
      {"cut off", "Tool1:\nA\nAll Upper Case\n", 1, true},
      {"key in the name in front",
       "Tool1:\nmy Tool2: x\nAll Upper Case\n" + none + none + none + none +
           "Tool2:\nB\nAll Lower Case\n" + none + none + none + none,
       2, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    Data.Put(u"FLURNCUS.DAT", c.File);
    Windows.Notices.clear();
    Windows.Answers = {Answer::Yes};
    Edit(c.Number, [&](EditTool2& form) {
      EXPECT_TRUE(form.Label8.Visible);
      for (const ComboBox* box : {&form.Combo1, &form.Combo2, &form.Combo3, &form.Combo4})
        EXPECT_EQ(box->Text, kNone);
      form.Command1.Click();
      EXPECT_EQ(form.Visible, !c.MayBeModified);
    });
    EXPECT_EQ(Windows.Notices.size(), c.MayBeModified ? 0u : 1u);
    EXPECT_EQ(File() == c.File, !c.MayBeModified);
  }
  // Settings that are missing have to be given.
  Data.Put(u"FLURNCUS.DAT", "Tool1:\nA\nSearch and Replace\n" + none + none + none + none);
  Windows.Answers = {Answer::Yes};
  Edit(1, [](EditTool2& form) { form.Command1.Click(); });
  EXPECT_EQ(Windows.Notices.back(), NeedsSettings(1));

  DeleteFile(path_);
  App().Menu.EditCustMenu.Click();
  EXPECT_EQ(Windows.Notices.back(),
            u"You have not created any custom tools, so therefore there are none to edit.");
}

TEST(OfferedToolsTest, StepsMayRunAProgramPassesMayNot) {
  std::vector<String> steps = OfferedTools(ToolUse::Step);
  EXPECT_EQ(steps.size(), 22u);
  EXPECT_EQ(steps[0], kNoTool);
  EXPECT_EQ(steps[16], u"Convert TO HTML");
  EXPECT_EQ(steps.back(), kRunProgram);
  steps.pop_back();
  EXPECT_EQ(OfferedTools(ToolUse::Pass), steps);
}

}  // namespace
