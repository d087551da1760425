#include "custom/custom_tool_runner.h"

#include <chrono>
#include <filesystem>
#include <thread>

#include "custom/custom_tool_record.h"
#include "support/app_fixture.h"
#include "text/runtime_error.h"
#include "tools/file_run.h"

namespace {

// A tool with these steps, of which the tests set what they need.
CustomTool WithSteps(std::initializer_list<StringView> names) {
  CustomTool tool;
  tool.Name = u"chain";
  std::size_t step = 0;
  for (const StringView name : names) tool.Steps[step++].Name = name;
  return tool;
}

class CustomToolRunnerTest : public AppTest {
 protected:
  // Starts the program with these tools as custom tools 1 and on.
  void StartWith(const std::vector<CustomTool>& tools) {
    std::vector<String> lines;
    int number = 0;
    for (const CustomTool& tool : tools) {
      for (String& line : RecordLines(tool, ++number)) lines.push_back(std::move(line));
    }
    WriteDataFile(Data / u"FLURNCUS.DAT", lines);
    Start();
  }
  // What the menu entry of custom tool 1 makes of a text.
  String Run(StringView text) {
    App().RichTextBox1.SetText(text);
    App().Menu.CustMenus[0].Click();
    return App().RichTextBox1.Text();
  }
  // The result of custom tool 1, or of `pass`, as bytes.
  std::string BytesOnFile(const std::string& bytes, CustomToolPass& pass) {
    const String file = Files.Put(u"file.txt", bytes);
    FileRun run(file, Data.Path());
    ToolContext context = App().Context();
    context.File = &run;
    App().CustomTools.RunOnFile(context, pass);
    EXPECT_EQ(BytesOf(file), bytes) << "the file waits for the driver";
    std::string result;
    run.Result().ReadRest([&result](std::string_view part) { result += part; });
    return result;
  }
  CustomToolPass Pass() { return {.Tool = ReadRecord(ReadDataFile(Data / u"FLURNCUS.DAT"), 1)}; }
  String RunOnFile(const std::string& bytes) {
    CustomToolPass pass = Pass();
    return FromUtf8(BytesOnFile(bytes, pass));
  }
};

TEST_F(CustomToolRunnerTest, RunsItsStepsInOrderAsOneStepOfUndo) {
  CustomTool tool =
      WithSteps({u"Remove Leading \">\" Signs", u"None Selected", u"Search and Replace",
                 u"no tool at all", u"Add Trailing Carriage Returns"});
  tool.Steps[2].Settings =
      SearchSettings{.SearchFor = u"a b", .ReplaceWith = u"x\r\ny", .MatchCase = true};
  tool.Steps[4].Settings = AddSettings{u"6", false};
  StartWith({tool});
  SearchReplaceForm& search = App().Tools.SearchReplaceForm;
  search.Text1.Text = u"mine";
  App().Tools.AddCarriageForm.Text1.Text = u"99";
  const String text = u">a b\r\n> 123456";
  EXPECT_EQ(Run(text), u"x\r\ny\r\n 1234\r\n56\r\n");
  EXPECT_EQ(search.Text1.Text.Get(), u"mine");
  EXPECT_EQ(App().Tools.AddCarriageForm.Text1.Text.Get(), u"99");
  EXPECT_EQ(App().Tools.AddCarriageForm.Check1.Value, 1);
  EXPECT_EQ(ReadWorkFile(App().Fields.TempFile1), text);
  App().Menu.UndoEditMenu.Click();
  EXPECT_EQ(App().RichTextBox1.Text(), text);
  EXPECT_EQ(RunOnFile(">a b\r\n> 123456"), u"x\r\ny\r\n 1234\r\n56\r\n");
}

TEST_F(CustomToolRunnerTest, EveryStepNameRuns) {
  struct Case {
    StringView Step;
    StringView Text;
    StringView Result;
  };
  const Case cases[] = {
      {u"Remove Trailing Carriage Returns", u"a\r\nb", u"a b \r\n"},
      {u"Add Trailing Carriage Returns", u"ab", u"ab\r\n"},
      {u"All Lower Case", u"AB", u"ab"},
      {u"All Upper Case", u"ab", u"AB"},
      {u"Capitalize 1st Letter on Every Line", u"ab", u"Ab\r\n"},
      {u"Capitalize 1st Letter of Sentences", u"ab", u"Ab\r\n"},
      {u"Capitalize Custom Words", u"ab", u"ab"},
      {u"Add Double Spacing", u"a\r\nb", u"a\r\n\r\nb\r\n"},
      {u"Remove Double Spacing", u"a\r\n\r\nb", u"a\r\nb\r\n"},
      {u"Remove Blank Lines at Beginning and End of Text", u"\r\na\r\n", u"a\r\n"},
      {u"Add Blank Line Before Indented Paragraph", u"a\r\n\tb", u"a\r\n\r\n\tb\r\n"},
      {u"Remove Leading \">\" Signs", u">a", u"a\r\n"},
      {u"Remove 1 Leading Space", u"  a", u" a\r\n"},
      {u"Remove ALL Leading Spaces", u"  a", u"a\r\n"},
      {u"Indent Paragraphs", u"\r\na", u"\r\n\ta\r\n"},
      {u"Fix Odd-Looking Characters (upper->lower ASCII)", u"\u2026", u"...\r\n"},
      {u"Convert TO HTML", u"T\r\na",
       u"<HTML>\r\n<HEAD>\r\n<TITLE>T</TITLE>\r\n</HEAD>\r\n<BODY>\r\n<B><U>T</U></B>\r\na\r\n"
       u"<P>\r\n</BODY>\r\n</HTML>\r\n"},
      {u"Convert FROM HTML", u"<BODY>\r\na<B>b</B>", u"ab\r\n"},
      {u"Search and Replace", u"ab", u"xb\r\n"},
      {u"Email Cleanup - Standard", u"> a\r\n> b", u"a b \r\n"},
      {u"Email Cleanup - Poem or List", u"> a\r\n> b", u"a\r\nb\r\n"},
      {u"None Selected", u"ab", u"ab"},
  };
  StartWith({WithSteps({})});
  for (const Case& c : cases) {
    SCOPED_TRACE(ToUtf8(c.Step));
    CustomTool tool = WithSteps({c.Step});
    tool.Steps[0].Settings = SearchSettings{.SearchFor = u"a", .ReplaceWith = u"x"};
    WriteDataFile(Data / u"FLURNCUS.DAT", RecordLines(tool, 1));
    EXPECT_EQ(Run(c.Text), c.Result);
  }
  EXPECT_TRUE(Windows.Notices.empty());
}

TEST_F(CustomToolRunnerTest, ShowsTheSettingsThatAStepAsksFor) {
  CustomTool tool = WithSteps({u"Search and Replace", u"Search and Replace"});
  tool.Steps[0].Settings = SearchSettings{.SearchFor = u"a", .ReplaceWith = u"b"};
  tool.Steps[0].ShowSettings = true;
  tool.Steps[1].Settings = SearchSettings{.SearchFor = u"b", .ReplaceWith = u"c"};
  StartWith({tool});
  SearchReplaceForm& form = App().Tools.SearchReplaceForm;
  Windows.OnModal = [&](Form& shown) {
    ASSERT_EQ(&shown, &form);
    EXPECT_EQ(form.Text1.Text.Get(), u"a");
    form.Text2.Text = u"x";
    form.Command1.Click();
  };
  EXPECT_EQ(Run(u"ab"), u"xc\r\n");
  Windows.OnModal = [&](Form&) { form.Command2.Click(); };
  EXPECT_EQ(Run(u"ab"), u"ac\r\n") << "a cancelled step does nothing, the next one runs";
}

// A tool on the whole text drops the selection, and the chain goes on; one that leaves nothing of
// the selection ends it, since the rest of the text was not meant.
TEST_F(CustomToolRunnerTest, ChainOnASelection) {
  CustomTool page = WithSteps({u"Convert FROM HTML", u"All Upper Case"});
  CustomTool gone = WithSteps({u"Search and Replace", u"All Upper Case"});
  gone.Steps[0].Settings = SearchSettings{.SearchFor = u"ab"};
  StartWith({page, gone});
  RichTextBox& box = App().RichTextBox1;
  box.SetText(u"<BODY>\r\nab<B>c</B>");
  box.SetSelLength(4);
  App().Menu.CustMenus[0].Click();
  EXPECT_EQ(box.Text(), u"ABC\r\n");
  box.SetText(u"x\r\nab\r\ny");
  box.SetSelStart(3);
  box.SetSelLength(4);
  App().Menu.CustMenus[1].Click();
  EXPECT_EQ(box.Text(), u"x\r\ny");
}

TEST_F(CustomToolRunnerTest, ProgramOfAStepStaysOutOfTheWindow) {
  // The program needs time of its own, which the clock of the test does not give it.
  Windows.OnWait = [] { std::this_thread::sleep_for(std::chrono::milliseconds(10)); };
  CustomTool tool = WithSteps({u"Run Program", u"All Upper Case"});
  tool.Steps[0].Settings = RunSettings{u"/bin/true", u"x"};
  StartWith({tool});
  const auto& program = App().Tools.RunProgramSettings.Text1.Text;
  EXPECT_EQ(Run(u"ab"), u"AB");
  EXPECT_EQ(program.Get(), u"");
  EXPECT_EQ(RunOnFile("ab"), u"AB\r\n");
  EXPECT_EQ(program.Get(), u"");
}

// Events run while a step waits for its program, and the editor holds the selection alone.
TEST_F(CustomToolRunnerTest, NothingComesBetweenTheSteps) {
  const String waits = Files.Put(u"waits", "#!/bin/sh\nsleep 0.1\n");
  std::filesystem::permissions(ToUtf8(waits), std::filesystem::perms::owner_all);
  CustomTool first = WithSteps({u"Run Program", u"All Upper Case"});
  first.Steps[0].Settings = RunSettings{waits, {}};
  StartWith({first, WithSteps({u"All Lower Case", u"All Lower Case"})});
  const String file = Files.Put(u"document.txt", "one two three");
  Windows.ChosenFile = file;
  App().Menu.OpenMenu.Click();
  RichTextBox& box = App().RichTextBox1;
  box.SetSelStart(4);
  box.SetSelLength(3);
  int waited = 0;
  Windows.OnWait = [&] {
    if (++waited > 1) return;
    EXPECT_EQ(box.Text(), u"two");
    EXPECT_TRUE(box.Locked);
    App().Menu.SaveMenu.Click();
    App().Menu.UndoEditMenu.Click();
    KeyEvent undo;
    undo.Key = 'Z';
    undo.Control = true;
    box.OnKeyDown(undo);
    App().Menu.CustMenus[1].Click();
    App().Command6.Click();
    App().Menu.NewMenu.Click();
    App().DropFiles({file});
    App().CloseByFrame();
  };
  App().Menu.CustMenus[0].Click();
  EXPECT_GT(waited, 0);
  EXPECT_EQ(box.Text(), u"one TWO three");
  EXPECT_EQ(BytesOf(file), "one two three");
  EXPECT_FALSE(box.Locked);
  EXPECT_FALSE(Windows.QuitStatus.has_value());
  EXPECT_TRUE(Windows.Questions.empty());
  App().Menu.SaveMenu.Click();
  EXPECT_EQ(BytesOf(file), "one TWO three");
  App().Menu.UndoEditMenu.Click();
  EXPECT_EQ(box.Text(), u"one two three");
}

// What a step leaves may no longer show how the file holds its text.
TEST_F(CustomToolRunnerTest, FileKeepsItsFormatAlongTheChain) {
  struct Case {
    StringView First;
    StringView Search, Replacement;  // of the second step, in codes
    std::string In, Out;
  };
  const Case cases[] = {
      {u"Fix Odd-Looking Characters (upper->lower ASCII)", u"120", u"233", "\x93x\r\n",
       "\"\xe9\r\n"},
      {u"Email Cleanup - Standard", u"120", u"121", ">\n>\n", "\n"},
      {u"Remove Trailing Carriage Returns", u"97", u"13", "a b\n", "\n b \n"},
  };
  StartWith({WithSteps({})});
  for (const Case& c : cases) {
    SCOPED_TRACE(ToUtf8(c.First));
    CustomTool tool = WithSteps({c.First, u"Search and Replace"});
    tool.Steps[1].Settings = SearchSettings{
        .SearchFor = String(c.Search), .ReplaceWith = String(c.Replacement), .ByCodes = true};
    WriteDataFile(Data / u"FLURNCUS.DAT", RecordLines(tool, 1));
    CustomToolPass pass = Pass();
    EXPECT_EQ(BytesOnFile(c.In, pass), c.Out);
  }
}

// What is done and what is not, when a step or the record is at fault.
TEST_F(CustomToolRunnerTest, FailureEndsTheRunAndIsTold) {
  CustomTool page = WithSteps({u"All Upper Case", u"Convert TO HTML", u"All Lower Case"});
  page.Steps[1].Settings = HtmlSettings{.HeaderFile = Files / u"gone"};
  CustomTool typo = WithSteps({u"Search and Replace", u"All Upper Case"});
  typo.Steps[0].Settings = SearchSettings{.SearchFor = u"a<OR>"};
  CustomTool program = WithSteps({u"Run Program", u"All Upper Case"});
  program.Steps[0].Settings = RunSettings{Files / u"gone", {}};
  StartWith({WithSteps({u"All Upper Case"})});
  using Names = std::vector<String>;
  const struct {
    const char* Name;
    std::vector<String> Record;
    StringView Text;
    Names Done, NotDone;
    StringView Notice;  // a part of it
  } cases[] = {
      {"a step that can't be done ends the run",
       RecordLines(page, 1),
       u"AB",
       {u"All Upper Case"},
       {u"Convert TO HTML", u"All Lower Case"},
       u"gone"},
      {"a tool's own message does not",
       RecordLines(typo, 1),
       u"AB\r\n",
       {u"All Upper Case"},
       {u"Search and Replace"},
       u"<OR>"},
      {"nor a program's",
       RecordLines(program, 1),
       u"AB",
       {u"All Upper Case"},
       {u"Run Program"},
       u"cannot be accessed"},
      {"a record that is cut off",
       {u"Tool1:", u"chain", u"All Upper Case"},
       u"ab",
       {},
       {},
       u"cut off"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    Windows.Notices.clear();
    WriteDataFile(Data / u"FLURNCUS.DAT", c.Record);
    EXPECT_EQ(Run(u"ab"), c.Text);
    ASSERT_EQ(Windows.Notices.size(), 1u);
    EXPECT_TRUE(Contains(Windows.Notices[0], c.Notice)) << ToUtf8(Windows.Notices[0]);
    App().RichTextBox1.SetText(u"ab");
    ToolContext context = App().Context();
    const CustomToolResult result = App().CustomTools.Run(context, 1);
    EXPECT_EQ(result.Done, c.Done);
    EXPECT_EQ(result.NotDone, c.NotDone);
    EXPECT_FALSE(result.Whole());
    EXPECT_EQ(ReadWorkFile(App().Fields.TempFile1), u"ab");
  }
}

TEST_F(CustomToolRunnerTest, MenuKeysAndButtonsHaveTheirGuards) {
  StartWith({WithSteps({u"All Upper Case"}), WithSteps({u"All Lower Case"})});
  RichTextBox& box = App().RichTextBox1;
  box.SetText(u"aB");
  App().Command5.Click();
  EXPECT_EQ(box.Text(), u"AB");
  KeyEvent key;
  key.Key = kKeyF1 + 1;
  App().KeyDown(key);
  EXPECT_EQ(box.Text(), u"ab");
  App().Command6.Click();
  EXPECT_EQ(box.Text(), u"ab");
  App().RunCustomTool(3);
  EXPECT_FALSE(App().Menu.CustMenus[2].Visible);

  box.SetText(u"  ");
  App().Menu.CustMenus[0].Click();
  EXPECT_TRUE(Windows.Notices.empty());
  box.SetText(u"ab");
  box.Locked = true;
  App().Menu.CustMenus[0].Click();
  App().Command5.Click();
  key.Key = kKeyF1 + 2;  // no such tool
  App().KeyDown(key);
  EXPECT_EQ(box.Text(), u"ab");
  EXPECT_EQ(Windows.Notices.size(), 3u);
}

// The first file of a batch asks, the others take what was chosen there.
TEST_F(CustomToolRunnerTest, BatchAsksOncePerPass) {
  CustomTool tool = WithSteps({u"Add Trailing Carriage Returns", u"Search and Replace"});
  tool.Steps[0].Settings = AddSettings{u"60", true};
  tool.Steps[1].Settings = SearchSettings{.SearchFor = u"a", .ReplaceWith = u"b"};
  tool.Steps[1].ShowSettings = true;
  StartWith({tool});
  SearchReplaceForm& search = App().Tools.SearchReplaceForm;
  search.Text1.Text = u"mine";
  std::vector<String> shown;
  Windows.OnModal = [&](Form& form) {
    shown.push_back(form.Caption);
    if (&form == &search) {
      EXPECT_EQ(search.Text2.Text.Get(), u"b");
      search.Text2.Text = u"x";
    } else {
      EXPECT_EQ(App().CustomTools.CustShowWinNotice.Label2.Caption.Get(), u"Tool #2 Notice");
    }
    form.CloseByFrame();
  };
  CustomToolPass pass = Pass();
  pass.Number = 2;
  EXPECT_EQ(BytesOnFile("abc", pass), "xbc\r\n");
  EXPECT_EQ(BytesOnFile("aa", pass), "xx\r\n");
  EXPECT_EQ(shown.size(), 2u);
  EXPECT_EQ(search.Text1.Text.Get(), u"mine");
}

TEST_F(CustomToolRunnerTest, BatchTellsOfRenamesAndOfNothingMade) {
  StartWith({WithSteps({u"Convert TO HTML", u"Convert FROM HTML"})});
  std::string renames;
  CustomToolPass pass = Pass();
  pass.RenameToHtml = [&] { renames += "html "; };
  pass.RenameToTxt = [&] { renames += "txt "; };
  EXPECT_EQ(BytesOnFile("T\r\na", pass), "T\r\na\r\n");
  EXPECT_EQ(renames, "html txt ");

  pass.Tool = WithSteps({u"Capitalize Custom Words", u"None Selected"});
  try {
    BytesOnFile("a", pass);
    ADD_FAILURE() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Code, kFileNotFound);
  }
}

}  // namespace
