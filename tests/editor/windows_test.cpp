// The small windows that every part speaks through.

#include <gtest/gtest.h>

#include "editor/browse_folders.h"
#include "editor/help_topics.h"
#include "editor/working_run.h"
#include "platform/console/console_window_system.h"
#include "platform/system/files.h"
#include "support/scripted_window_system.h"
#include "support/temp_folder.h"
#include "text/runtime_error.h"

namespace {

TEST(Question1, AnswersByButtonAndFrameAndStartsClean) {
  struct Case {
    std::function<void(Question1&)> Act;
    Answer Expected;
  };
  const Case cases[] = {
      {[](Question1& q) { q.Command1.Click(); }, Answer::Yes},
      {[](Question1& q) { q.CloseByFrame(); }, Answer::Cancel},
      {[](Question1& q) { q.Command2.Click(); }, Answer::No},
      {[](Question1& q) { q.Command3.Click(); }, Answer::Cancel},
      {[](Question1& q) { q.Command1.Click(); }, Answer::Yes},
  };
  ScriptedWindowSystem windows;
  Question1 question(windows);
  for (const Case& c : cases) {
    question.QuestionMessage = u"Well?";
    question.Show();
    EXPECT_EQ(question.Label1.Caption.Get(), u"Well?");
    EXPECT_EQ(question.Answer, Answer::Cancel);
    c.Act(question);
    EXPECT_FALSE(question.Visible);
    EXPECT_EQ(question.Answer, c.Expected);
    question.Unload();
  }
}

TEST(HelpWindow, ShowsTheChosenTopicAboveItsCaller) {
  ScriptedWindowSystem windows;
  Messages messages(windows);
  HelpWindow& help = messages.HelpWindow;
  EXPECT_EQ(help.Combo1.Text.Get(), u"WordFlurn in short");
  help.Show();
  int shown = 0;
  windows.OnModal = [&](Form& form) {
    ASSERT_EQ(&form, &help);
    ++shown;
    EXPECT_EQ(help.Combo1.Text.Get(), u"Search and Replace");
    EXPECT_TRUE(help.Text1.Text.Get().starts_with(u"Search for:"));
    help.Combo1.ListIndex = 0;
    EXPECT_TRUE(help.Text1.Text.Get().starts_with(u"WordFlurn edits plain text."));
    help.Command1.Click();
  };
  messages.Help(kHelpSearchReplace);
  EXPECT_EQ(shown, 1);
  EXPECT_FALSE(help.Visible);
  help.AddPage(kHelpKeys, u"Keys\n\nF1\n");
  for (const int topic :
       {kHelpContents, kHelpKeys, kHelpRunProgram, kHelpHtml, kHelpSearchReplace}) {
    help.Choose(topic);
    EXPECT_EQ(help.Combo1.ListIndex == 0, topic == kHelpContents) << topic;
  }
}

TEST(Messages, WithoutAPersonNobodyWaits) {
  ConsoleWindowSystem windows;
  Messages messages(windows);
  testing::internal::CaptureStderr();
  messages.Notice(u"Told.");
  EXPECT_EQ(messages.Ask(u"Asked?"), Answer::Cancel);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "wordflurn: Told.\nwordflurn: Asked? CANCEL\n");
}

TEST(WorkingRun, ShowsForLongTextsOnly) {
  for (const auto& [length, shown] : {std::pair<std::size_t, bool>{45000, false}, {45001, true}}) {
    ScriptedWindowSystem windows;
    Messages messages(windows);
    SharedFields fields;
    {
      const WorkingRun run(fields, messages, windows, length);
      EXPECT_EQ(fields.WorkingShown, shown);
      EXPECT_EQ(messages.Working.Visible.Get(), shown);
      EXPECT_EQ(windows.EventTurns, shown ? 1 : 0);
    }
    EXPECT_FALSE(messages.Working.Visible);
  }
}

TEST(Form, LoadsAgainAfterALoadThatFailed) {
  struct Failing : Form {
    using Form::Form;
    Layout Content() override { return Column({}); }
    void Load() override {
      if (++Loads == 1) throw RuntimeError(kDiskFull, "full");
    }
    int Loads = 0;
  };
  ScriptedWindowSystem windows;
  Failing form(windows);
  EXPECT_THROW(form.Show(), RuntimeError);
  EXPECT_FALSE(form.Visible);
  form.Show();
  form.Show();
  EXPECT_TRUE(form.Visible);
  EXPECT_EQ(form.Loads, 2);
}

TEST(BrowseFolders, PicksAFolder) {
  TempFolder folder;
  ScriptedWindowSystem windows;
  Messages messages(windows);
  BrowseFolders browse(windows, messages);
  browse.StartFolder = u" " + folder.Path() + u" ";
  const String inner = folder / u"inner", deep = folder / u"inner/deep";
  MakeFolders(deep, 0700);
  const struct {
    std::function<void()> Act;
    String Chosen;
  } cases[] = {
      {[&] { browse.Command1.Click(); }, folder.Path()},
      {[&] { browse.Dir1.Go(inner), browse.Command1.Click(); }, inner},
      {[&] { browse.CloseByFrame(); }, u""},
      // A folder highlighted counts; going on counts from there.
      {[&] {
         EXPECT_EQ(browse.Dir1.Highlighted(), folder.Path());
         browse.Dir1.ListIndex = static_cast<int>(browse.Dir1.Rows.Get().size()) - 1;
         EXPECT_EQ(browse.Dir1.Path.Get(), folder.Path());
         browse.Command1.Click();
       },
       inner},
      // The volume follows the folder without sending it to the volume's top, and the other way
      // round.
      {[&] {
         browse.Drive1.List = std::vector<String>{u"/", inner};
         browse.Dir1.Go(deep);
         EXPECT_EQ(browse.Drive1.Drive.Get(), inner);
         EXPECT_EQ(browse.Dir1.Path.Get(), deep);
         browse.Drive1.Drive = u"/";
         EXPECT_EQ(browse.Dir1.Path.Get(), u"/");
         browse.Command1.Click();
       },
       u"/"},
      {[&] {
         const String drive = browse.Drive1.Drive;
         browse.Drive1.List = std::vector<String>{u"/", folder / u"no disk"};
         browse.Drive1.Drive = folder / u"no disk";
         EXPECT_EQ(browse.Drive1.Drive.Get(), drive);
         EXPECT_EQ(browse.Dir1.Path.Get(), folder.Path());
         browse.Command2.Click();
       },
       u""},
  };
  for (const auto& c : cases) {
    windows.OnModal = [&](Form&) { c.Act(); };
    browse.ShowModal();
    EXPECT_EQ(browse.ChosenFolder, c.Chosen);
  }
  EXPECT_EQ(windows.Notices,
            std::vector{String(u" There is no disk in the drive / device unavailable.")});
}

}  // namespace
