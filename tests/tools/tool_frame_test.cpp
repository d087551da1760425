// The road of a tool over the whole text, over a selection and over a file.

#include "tools/tool_frame.h"

#include "support/app_fixture.h"
#include "text/runtime_error.h"
#include "tools/catalogue.h"
#include "tools/file_run.h"
#include "tools/selection.h"

namespace {

constexpr StringView kGuard =
    u"This text has been encrypted and no tools may be run on it until after it is decrypted.";

class ToolFrameTest : public AppTest {
 protected:
  void Run(StringView tool) { App().Menu.ToolMenu(tool)->Click(); }
};

TEST_F(ToolFrameTest, RunsOnTheWholeTextOrTheSelection) {
  struct Case {
    const char* Name;
    StringView Text;
    std::size_t SelStart, SelLength;
    StringView Result;
    std::size_t ResultStart, ResultLength;
  };
  const Case cases[] = {
      {"whole text, no final line end", u"ab\r\nc\nd", 3, 0, u"AB\r\nC\nD", 2, 0},
      {"middle", u"one two three", 4, 3, u"one TWO three", 4, 3},
      {"from the start", u"one two", 0, 3, u"ONE two", 0, 3},
      {"behind the first character", u"xone", 1, 3, u"xONE", 1, 3},
      {"all of it", u"one", 0, 3, u"ONE", 0, 3},
      {"ends in a line end", u"one\r\ntwo", 0, 5, u"ONE\r\ntwo", 0, 5},
      {"ends in an empty line", u"one\r\n\r\ntwo", 0, 7, u"ONE\r\n\r\ntwo", 0, 7},
      {"result stands earlier too", u"AB ab", 3, 2, u"AB AB", 0, 2},
      {"past the end", u"one", 1, 99, u"oNE", 1, 2},
      {"outside ASCII", u"straße é\u00B5 \u0436", 0, 99, u"STRAßE É\u00B5 \u0416", 0, 11},
  };
  Start();
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Name);
    RichTextBox& box = App().RichTextBox1;
    box.SetText(c.Text);
    box.SetSelStart(c.SelStart);
    box.SetSelLength(c.SelLength);
    Run(u"All Upper Case");
    EXPECT_EQ(box.Text(), c.Result);
    EXPECT_EQ(box.SelStart(), c.ResultStart);
    EXPECT_EQ(box.SelLength(), c.ResultLength);
    EXPECT_EQ(ReadWorkFile(App().Fields.TempFile1), c.Text);
    EXPECT_FALSE(FileExists(App().Fields.TempFile5));
    App().Command7.Click();
    EXPECT_EQ(box.Text(), c.Text);
  }
}

TEST_F(ToolFrameTest, BlankTextIsLeftAlone) {
  Start();
  for (const StringView blank : {u"", u"   "}) {
    App().RichTextBox1.SetText(blank);
    App().Fields.TextChanged = false;
    Run(u"All Lower Case");
    EXPECT_EQ(App().RichTextBox1.Text(), blank);
    EXPECT_FALSE(App().Fields.ToolRan);
    EXPECT_FALSE(App().Fields.TextChanged);
    EXPECT_FALSE(FileExists(App().Fields.TempFile1));
  }
}

// A tool that prints lines adds a line end; it is taken off again where the selection had none.
TEST_F(ToolFrameTest, LineEndThatAToolAddsIsCutFromASelection) {
  struct Case {
    StringView Selected;
    StringView Printed;  // what the tool leaves
    StringView Result;
  };
  const Case cases[] = {
      {u"ab", u"AB\r\n", u"AB"},
      {u"ab\r\n", u"AB\r\n", u"AB\r\n"},
      {u"ab\r\n\r\n", u"AB\r\n\r\n", u"AB\r\n\r\n"},
      {u"ab\r\n\r\n\r\n", u"AB\r\n\r\n\r\n", u"AB\r\n\r\n\r\n"},
      {u"a\r\nb", u"A\r\nB\r\n", u"A\r\nB"},
      {u"\r\n", u"\r\n", u"\r\n"},
      {u"a", u"", u""},
      {u"a", u"A", u"A"},
      // An emptied last line, and blank lines that are gone.
      {u"x\r\n ", u"x\r\n\r\n", u"x\r\n"},
      {u"a\r\n\r\n", u"a\r\n", u"a\r\n"},
  };
  Start();
  for (const Case& c : cases) {
    SCOPED_TRACE(ToUtf8(c.Selected));
    RichTextBox& box = App().RichTextBox1;
    box.SetText(u"<" + String(c.Selected) + u">");
    box.SetSelStart(1);
    box.SetSelLength(c.Selected.size());
    ToolContext context = App().Context();
    ToolSelection selection;
    bool keepLineEnd = false;
    selection.SelectedTextBeforeTool(context, keepLineEnd);
    EXPECT_EQ(box.Text(), c.Selected);
    box.SetText(c.Printed);
    selection.SelectedTextAfterTool(context);
    EXPECT_EQ(box.Text(), u"<" + String(c.Result) + u">");
  }
}

TEST_F(ToolFrameTest, ToolThatFailsOnASelectionLeavesTheWholeText) {
  Start();
  RichTextBox& box = App().RichTextBox1;
  box.SetText(u"one two three");
  box.SetSelStart(4);
  box.SetSelLength(3);
  ToolContext context = App().Context();
  EXPECT_THROW(RunCharacterTool(context, [](StringView, String&) { throw std::bad_alloc(); }),
               std::bad_alloc);
  EXPECT_EQ(box.Text(), u"one two three");
}

TEST_F(ToolFrameTest, FilePathReadsLinesAndEndsTheLast) {
  struct Case {
    std::string Input, Output;
  };
  const Case cases[] = {
      {"", ""},
      {"ab", "AB\r\n"},
      {"ab\r\ncd\r\n", "AB\r\nCD\r\n"},
      {"ab\rcd", "AB\r\nCD\r\n"},
      {"ab\nc\rd", "AB\nC\r\nD\r\n"},
      {"ab\ncd", "AB\nCD\n"},
      {"\xE9", "\xC9\r\n"},
      {"\xC3\xA9\n\n", "\xC3\x89\n\n"},
      {"\xEF\xBB\xBF"
       "a",
       "\xEF\xBB\xBF"
       "A\r\n"},
      {std::string("\xFF\xFE"
                   "a\0",
                   4),
       std::string("\xFF\xFE"
                   "A\0\r\0\n\0",
                   8)},
      {std::string("a\0b", 3), std::string("A\0B\r\n", 5)},
  };
  Start();
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Input);
    FileRun run(Files.Put(u"in", c.Input), Data.Path());
    ToolContext context = App().Context();
    context.File = &run;
    FindTool(u"All Upper Case")->Run(context, {});
    std::string output;
    run.Result().ReadRest([&output](std::string_view bytes) { output += bytes; });
    EXPECT_EQ(output, c.Output);
    EXPECT_TRUE(run.Input().AtEnd());
    EXPECT_FALSE(App().Fields.ToolRan);
  }
}

TEST_F(ToolFrameTest, ToolsMenuRefusesEncryptedText) {
  Start();
  App().RichTextBox1.Locked = true;
  App().Menu.ToolsMenu.OnOpen();
  EXPECT_EQ(Windows.Notices, std::vector{String(kGuard)});
}

TEST(Catalogue, StoredNamesAreUniqueAndFound) {
  EXPECT_EQ(Catalogue().size(), 22u);
  for (const Tool& tool : Catalogue()) EXPECT_EQ(FindTool(tool.StoredName), &tool);
  EXPECT_EQ(FindTool(u"all upper case"), nullptr);
  EXPECT_EQ(FindTool(kNoTool), nullptr);
}

}  // namespace
