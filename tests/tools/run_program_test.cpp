// Real programs: shell scripts that the tests write.

#include <chrono>
#include <sys/stat.h>
#include <thread>

#include "platform/system/process.h"
#include "support/tool_fixture.h"
#include "text/runtime_error.h"
#include "tools/catalogue.h"

namespace {

constexpr StringView kNoAccess =
    u"Error: The specified program in the Run Program tool cannot be accessed.";
constexpr StringView kNotComplete =
    u"Error: The specified program in the Run Program tool did not complete its task within 30 "
    u"seconds.  Processing will continue using any other tools.";
constexpr StringView kUnknown = u"Error: An unknown error occurred with the Run Program tool.";

class RunProgramTest : public ToolTest {
 protected:
  void SetUp() override {
    ToolTest::SetUp();
    WaitsTake(10);
  }

  // Programs need time of their own, which the clock of the test does not give them: so much for
  // each wait of 20 ms by that clock.
  void WaitsTake(int milliseconds) {
    Windows.OnWait = [milliseconds] {
      std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    };
  }
  String Script(StringView name, const std::string& commands, mode_t mode = 0700) {
    const String path = Files.Put(name, "#!/bin/sh\n" + commands + "\n");
    chmod(ToUtf8(path).c_str(), mode);
    return path;
  }
  void Set(const String& program, StringView arguments = {}) {
    App().Tools.RunProgramSettings.Text1.Text = program;
    App().Tools.RunProgramSettings.Text2.Text = String(arguments);
  }
  std::vector<String> TakeNotices() { return std::exchange(Windows.Notices, {}); }
};

TEST_F(RunProgramTest, TakesBackWhatTheProgramLeaves) {
  Set(Script(u"up per",
             "tr a-z A-Z < \"$1\" > \"$1.new\" && mv \"$1.new\" \"$1\"; shift\n"
             "echo \"$#:$1:$2\" > \"" +
                 ToUtf8(Files / u"arguments") + "\""),
      u"  -x  \"two words\"  ");
  EXPECT_EQ(OnBoth(kRunProgram, u"abc\r\ndef"), u"ABC\r\nDEF");
  EXPECT_EQ(BytesOf(Files / u"arguments"), "2:-x:two words\n");
  OnEditor(kRunProgram, u"abc");
  EXPECT_EQ(ReadWorkFile(App().Fields.TempFile1), u"abc");
  EXPECT_TRUE(TakeNotices().empty());
}

TEST_F(RunProgramTest, WorksOnASelection) {
  // With a line end and without; the file is for the user alone.
  for (const char* write :
       {"[ \"$(stat -c %a \"$1\")\" = 600 ] && printf XYZ > \"$1\"", "echo XYZ > \"$1\""}) {
    Set(Script(u"upper", write));
    RichTextBox& box = App().RichTextBox1;
    box.SetText(u"one two three");
    box.SetSelStart(4);
    box.SetSelLength(3);
    ToolContext context = App().Context();
    Run(context, kRunProgram);
    EXPECT_EQ(box.Text(), u"one XYZ three");
  }
}

// What becomes of the text "abc" when the program does not do its work.
TEST_F(RunProgramTest, ProgramThatFails) {
  struct Case {
    const char* Name;
    String Program;
    StringView Text;
    StringView Notice;
    int FileCode;  // 0 where the file gets the text
    bool Aborts;   // told as a program that can't be accessed
  };
  const Case cases[] = {
      {"missing", Files / u"nothing", u"abc", kNoAccess, kFileNotFound, true},
      {"a folder", Files.Path(), u"abc", kNoAccess, kFileNotFound, true},
      {"not executable", Script(u"plain", "true", 0600), u"abc", kUnknown, kFileNotFound, true},
      {"no program",
       [this] {
         const String path = Files.Put(u"none",
                                       "\x7F"
                                       "ELF nonsense");
         chmod(ToUtf8(path).c_str(), 0700);
         return path;
       }(),
       u"abc", kUnknown, kFileNotFound, true},
      {"ends with 1", Script(u"one", "echo new > \"$1\"; exit 1"), u"new\r\n", kNotComplete,
       kProgramDidNotReturn, false},
      {"ends by a signal", Script(u"kill", "kill -9 $$"), u"abc", kNotComplete,
       kProgramDidNotReturn, false},
      {"never ends", Script(u"sleep", "exec sleep 20"), u"abc", kNotComplete, kProgramDidNotReturn,
       false},
      {"deletes the file", Script(u"rm", "rm \"$1\""), u"abc", kUnknown, kFileNotFound, false},
      {"leaves a link", Script(u"link", "rm \"$1\"; ln -s \"$0\" \"$1\""), u"abc", kUnknown,
       kPathFileAccess, false},
      {"empties the file", Script(u"empty", ": > \"$1\""), u"", u"", 0, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Name);
    // Where the end of the limit is wanted, it may come soon.
    WaitsTake(c.Notice == kNotComplete ? 1 : 10);
    Set(c.Program);
    EXPECT_EQ(OnEditor(kRunProgram, u"abc"), c.Text);
    const auto notices = TakeNotices();
    EXPECT_EQ(notices.empty() ? String() : notices.front(), c.Notice);
    FileRun run(Files.Put(u"in.txt", "abc"), Data.Path());
    ToolContext context = App().Context();
    context.File = &run;
    int code = 0;
    try {
      Run(context, kRunProgram);
      EXPECT_EQ(ReadTextFile(run.Result()).Text, c.Text);
    } catch (const RuntimeError& error) {
      code = error.Code;
    }
    EXPECT_EQ(code, c.FileCode);
    EXPECT_EQ(run.HasResult(), c.FileCode == 0);
    EXPECT_EQ(run.CheckingRunProgram, c.Aborts);
  }
}

TEST_F(RunProgramTest, SettingsAreChecked) {
  RunProgramSettings& form = App().Tools.RunProgramSettings;
  struct Case {
    const char* Name;
    String Program;
    std::deque<Answer> Answers;
    StringView Notice;
    bool Taken;
  };
  const String program = Script(u"program", "");
  const Case cases[] = {
      {"nothing",
       u"  ",
       {},
       u"Error: You did not enter the filename of the program to use.",
       false},
      {"missing",
       Files / u"nothing",
       {},
       u"Error: This program does not exist or cannot be accessed.",
       false},
      {"no program", Script(u"text", "", 0600), {Answer::No}, u"", false},
      {"no program, but wanted", Files / u"text", {Answer::Yes}, u"", true},
      {"by its name", Script(u"a.Exe", "", 0600), {}, u"", true},
      {"by its permission", u" " + program + u" ", {}, u"", true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Name);
    Windows.Answers = c.Answers;
    form.Show();
    form.Text1.Text = c.Program;
    form.Text2.Text = u" -x ";
    form.Command2.Click();
    const auto notices = TakeNotices();
    EXPECT_EQ(notices.empty() ? String() : notices.front(), c.Notice);
    EXPECT_TRUE(Windows.Answers.empty());
    EXPECT_EQ(form.Visible, !c.Taken);
    EXPECT_EQ(form.Text2.Text.Get(), c.Taken ? u"-x" : u" -x ");
    form.Hide();
  }
  EXPECT_EQ(form.Text1.Text.Get(), program);
  Windows.ChosenFile = Files / u"text";
  form.Command1.Click();
  EXPECT_EQ(form.Text1.Text.Get(), Files / u"text");
  form.CloseByFrame();
  EXPECT_TRUE(form.Cancelled);
}

TEST(SplitArguments, QuotesKeepAnArgumentTogether) {
  using Words = std::vector<String>;
  EXPECT_EQ(SplitArguments(u""), Words());
  EXPECT_EQ(SplitArguments(u"  a  b "), (Words{u"a", u"b"}));
  EXPECT_EQ(SplitArguments(u"\"a b\" \"\" c\"d e\"f \"g h"),
            (Words{u"a b", u"", u"cd ef", u"g h"}));
}

}  // namespace
