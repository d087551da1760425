#include <fstream>
#include <regex>

#include "batch/batch_windows.h"
#include "batch/ring_folder.h"
#include "batch/run_backups.h"
#include "batch/undo_on_terminal.h"
#include "editor/messages.h"
#include "platform/system/files.h"
#include "support/scripted_window_system.h"

namespace {

namespace fs = std::filesystem;

const String kAll =
    u"All files have been restored to their original state prior to the Multiple File Flurn.";
const String kSome =
    u"The selected files have been restored to their original state prior to the Multiple File "
    u"Flurn.";

class UndoWindows : public ::testing::Test {
 protected:
  UndoWindows() : messages(windows), batch(windows, messages, data / "", lock()) {}

  WhileLocked lock() {
    return [this](const std::function<void()>& action) {
      if (locked) throw RuntimeError(kPermissionDenied, "another program");
      action();
    };
  }

  // A run that writes "new" to the files, and makes one.
  void Run(const char* name, const std::vector<std::string>& names, bool makes = false) {
    const String folder = batch.Ring.Prepare().value();
    RunBackups backups(folder, MakeRunHead(1'700'000'000, FromUtf8(name)));
    for (const std::string& file : names) {
      if (!fs::exists(files.Path / file)) files.Put(file, "old " + file);
      backups.BackUp(files / file);
    }
    if (makes) backups.RecordTarget(files / "made.html");
    backups.Flush();
    for (const std::string& file : names) files.Put(file, std::string("new ") + name);
    if (makes) files.Put("made.html", "made");
    for (const std::string& file : files.Names()) backups.NoteLeft(files / file);
    backups.Close();
    batch.State.Run = batch.Ring.Runs().back();
  }

  // Works the window that is shown by the undo menu's window.
  void WorkFiles(const std::function<void(UndoMFF2&)>& work) {
    windows.OnModal = [this, work](Form& form) {
      shown.push_back(form.Caption);
      if (&form == &batch.UndoMFF) return batch.UndoMFF.Command1.Click();
      ASSERT_EQ(&form, &batch.UndoMFF2);
      work(batch.UndoMFF2);
      if (form.Visible) batch.UndoMFF2.CloseByFrame();
    };
  }

  TestFolder data;
  TestFolder files;
  bool locked = false;
  ScriptedWindowSystem windows;
  Messages messages;
  BatchWindows batch;
  std::vector<String> shown;
};

TEST_F(UndoWindows, NothingToUndo) {
  batch.ShowUndo();
  EXPECT_EQ(windows.Notices, std::vector<String>{u"No Multiple File Flurn operations found."});
  EXPECT_TRUE(shown.empty());
}

TEST_F(UndoWindows, ListsTheRunsNewestFirst) {
  Run("First run", {"a"});
  Run("abc", {"a"});
  Run("Third (run)", {"a"});
  fs::remove(data.Path / "MFF-Backups/2/WFMFFDIR.DAT");
  windows.OnModal = [&](Form& form) {
    ASSERT_EQ(&form, &batch.UndoMFF);
    UndoMFF& list = batch.UndoMFF;
    ASSERT_EQ(list.List1.ListCount(), 2);
    EXPECT_TRUE(list.List1.List.Get()[0].ends_with(u" (Third (run))"));
    EXPECT_EQ(list.List2.List.Get(), (std::vector<String>{u"1", u"3"}));
    EXPECT_EQ(list.Text1.Text.Get(), list.List1.List.Get()[0]);
    list.List1.ListIndex = 1;
    EXPECT_EQ(list.Text1.Text.Get(), list.List1.List.Get()[1]);
    list.Command2.Click();
  };
  batch.ShowUndo();
  EXPECT_FALSE(batch.UndoMFF.Loaded());
}

TEST_F(UndoWindows, UndoesAllOfTheChosenRun) {
  Run("First run", {"a", "b"});
  Run("Web pages", {"c"}, true);
  windows.Answers = {Answer::No, Answer::Yes};
  WorkFiles([&](UndoMFF2& w) {
    EXPECT_TRUE(w.Label4.Caption.Get().ends_with(u" \r\n(Web pages)"));
    EXPECT_EQ(w.List1.List.Get(), std::vector<String>{files / "c"});
    EXPECT_TRUE(w.Option1.Value);
    w.Command1.Click();
    EXPECT_TRUE(w.Visible) << "NO keeps it open";
    w.Command1.Click();
    EXPECT_FALSE(w.Visible);
  });
  batch.ShowUndo();
  EXPECT_EQ(
      windows.Notices,
      std::vector<String>{kAll + u" In addition, 1 or more files that were originally created with "
                                 u"this Multiple File Flurn have been removed."});
  EXPECT_EQ(files.Get("c"), "old c");
  EXPECT_EQ(files.Get("a"), "new First run");
  EXPECT_FALSE(fs::exists(files.Path / "made.html"));
  EXPECT_FALSE(batch.UndoMFF.Loaded());
  EXPECT_FALSE(batch.UndoMFF2.Loaded());
}

TEST_F(UndoWindows, TicksChooseFilesAndOptions) {
  Run("Web pages", {"a", "b", "c"}, true);
  windows.Answers = {Answer::Yes};
  WorkFiles([&](UndoMFF2& w) {
    w.Option2.Click();
    w.Option1.Value = false;
    w.Command1.Click();
    EXPECT_TRUE(windows.Notices.back().starts_with(u"Error: You specified to only undo selected"));
    w.List1.Select(1, true);
    w.List1.Select(2, true);
    w.List1.Select(1, false);
    EXPECT_TRUE(w.Option2.Value && !w.Option1.Value);
    w.List1.Select(2, false);
    EXPECT_TRUE(w.Option1.Value && !w.Option2.Value);
    w.List1.Select(1, true);
    w.Command1.Click();
  });
  batch.ShowUndo();
  EXPECT_EQ(windows.Notices.back(), kSome);
  EXPECT_EQ(files.Get("a"), "new Web pages");
  EXPECT_EQ(files.Get("b"), "old b");
  EXPECT_EQ(files.Get("made.html"), "made");
}

TEST_F(UndoWindows, AsksOnceAboutFilesChangedSince) {
  for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
    for (const char* name : {"a", "b", "made.html"}) fs::remove(files.Path / name);
    Run("Web pages", {"a", "b"}, true);
    files.Put("a", "my own");
    files.Put("made.html", "mine, too");
    windows.Answers = {Answer::Yes, answer};
    windows.Notices.clear();
    WorkFiles([&](UndoMFF2& w) {
      w.Command1.Click();
      EXPECT_EQ(w.Visible, answer == Answer::Cancel);
    });
    batch.ShowUndo();
    const String& question = windows.Questions.back();
    EXPECT_TRUE(Contains(question, files / "a") && Contains(question, files / "made.html"));
    EXPECT_FALSE(Contains(question, files / "b"));
    const bool restored = answer == Answer::Yes;
    EXPECT_EQ(files.Get("a"), restored ? "old a" : "my own");
    EXPECT_EQ(fs::exists(files.Path / "made.html"), !restored);
    EXPECT_EQ(files.Get("b"), answer == Answer::Cancel ? "new Web pages" : "old b");
    const fs::path run = ToUtf8(batch.State.Run.Folder);
    EXPECT_EQ(fs::exists(run / "undone---a"), restored);
    EXPECT_EQ(fs::exists(run / "undone---made.html"), restored);
    EXPECT_EQ(windows.Notices.size(), answer == Answer::Cancel ? 0u : 1u);
    EXPECT_TRUE(answer != Answer::No || Contains(windows.Notices.back(), files / "a"));
  }
}

TEST_F(UndoWindows, FailuresAreNamedAndTheOthersRestored) {
  Run("Web pages", {"a", "b"});
  const fs::path run = ToUtf8(batch.State.Run.Folder);
  fs::remove(run / "a");
  windows.Answers = {Answer::Yes};
  WorkFiles([&](UndoMFF2& w) { w.Command1.Click(); });
  batch.ShowUndo();
  EXPECT_TRUE(windows.Notices.back().starts_with(
      u"An error was encountered while trying to restore the files.\r\n"));
  EXPECT_TRUE(Contains(windows.Notices.back(), FromUtf8((run / "a").native())));
  EXPECT_EQ(files.Get("b"), "old b");

  std::ofstream(run / "WFMFFDIR.DAT", std::ios::app) << "neither\r\n";
  windows.Notices.clear();
  windows.Answers = {Answer::Yes};
  batch.ShowUndo();
  EXPECT_EQ(windows.Notices.front(), u"Error with backup file encountered.");

  locked = true;
  windows.Answers = {Answer::Yes};
  batch.ShowUndo();
  EXPECT_TRUE(Contains(windows.Notices.back(), u"another program"));

  // It goes between the two windows.
  windows.OnModal = [&](Form& form) {
    if (&form == &batch.UndoMFF2) return batch.UndoMFF2.CloseByFrame();
    fs::remove_all(run);
    batch.UndoMFF.Command1.Click();
  };
  batch.ShowUndo();
  EXPECT_EQ(windows.Notices.back(),
            u"An error was encountered while trying to access the backup files.");
}

TEST_F(UndoWindows, AnAbortedRunIsTakenBackInSilence) {
  Run("Web pages", {"a", "b"}, true);
  files.Put("a", "changed meanwhile");
  batch.UndoAbortedRun();
  EXPECT_TRUE(windows.Notices.empty());
  EXPECT_EQ(files.Get("a"), "old a");
  EXPECT_FALSE(fs::exists(files.Path / "made.html"));
  EXPECT_FALSE(batch.State.AutoUndo || batch.UndoMFF.Loaded() || batch.UndoMFF2.Loaded());
  fs::remove(ToUtf8(batch.State.Run.Folder + u"/a"));
  files.Put("a", "again");
  batch.UndoAbortedRun();
  fs::remove_all(ToUtf8(batch.State.Run.Folder));
  batch.UndoAbortedRun();
  ASSERT_GE(windows.Notices.size(), 2u);
  for (const std::size_t notice : {std::size_t{0}, windows.Notices.size() - 1})
    EXPECT_TRUE(
        windows.Notices[notice].starts_with(u"An error was encountered while trying to re"));
}

TEST_F(UndoWindows, ErrorsOfferTheUndoOfTheFailedFiles) {
  Run("Web pages", {"a", "b", "c"});
  batch.State.NoteFailedFile(files / "b", files / "b.html", u"No <BODY> tag found.");
  batch.State.NoteFailedFile(files / "missing", files / "missing", u"File not found");
  // Another run moves nothing, and its own files are not touched.
  const BatchRun run = batch.State.Run;
  Run("Later run", {"a"});
  batch.State.Run = run;
  windows.Answers = {Answer::Yes};
  WorkFiles([&](UndoMFF2& w) {
    EXPECT_EQ(w.List1.Selected.Get(), std::set<int>{1});
    EXPECT_TRUE(w.Option2.Value && !w.Option1.Value);
    w.Command1.Click();
  });
  MultiErrors& errors = batch.MultiErrors;
  errors.Show();
  EXPECT_EQ(errors.Text1.Text.Get(), files / "b.html" + u"......Error: No <BODY> tag found.\r\n" +
                                         (files / "missing") + u"......Error: File not found\r\n");
  errors.Command3.Click();
  EXPECT_EQ(windows.Notices.back(), kSome);
  EXPECT_EQ(files.Get("b"), "old b");
  EXPECT_EQ(files.Get("c"), "new Web pages");
  WorkFiles([](UndoMFF2& w) { EXPECT_TRUE(w.Option1.Value && w.List1.Selected.Get().empty()); });
  errors.Command2.Click();
  fs::remove_all(ToUtf8(run.Folder));
  errors.Command2.Click();
  EXPECT_EQ(windows.Notices.back(), u"Error: Could not find the undo files.");
  EXPECT_TRUE(errors.Visible);
}

TEST_F(UndoWindows, CancelWindowGoesWhenAllIsRestored) {
  Run("Web pages", {"a", "b"});
  MFFCancel& cancel = batch.MFFCancel;
  cancel.NoticeMessage = u"Canceled at b.";
  windows.Answers = {Answer::Yes, Answer::Yes};
  bool select = true;
  WorkFiles([&](UndoMFF2& w) {
    if (select) w.List1.Select(0, true);
    w.Command1.Click();
  });
  cancel.Show();
  cancel.Command2.Click();
  EXPECT_TRUE(cancel.Visible);
  select = false;
  cancel.Command2.Click();
  EXPECT_FALSE(cancel.Visible);
}

TEST(BatchState, MoreErrorsThanATableHolds) {
  BatchState state;
  for (int i = 0; i < 5002; ++i) state.NoteFailedFile(Str(i), Str(i), u"cause");
  const String text = state.BatchErrorText();
  EXPECT_TRUE(text.ends_with(u"\r\n4999......Error: cause\r\nand 2 more files.\r\n"));
  EXPECT_EQ(state.FailedFileCount(), 5002u);
  state.ClearFailedFiles();
  EXPECT_TRUE(state.BatchErrorText().empty());
}

TEST(ASCIIWarn, OneAnswerMayServeForARun) {
  ScriptedWindowSystem windows;
  ASCIIWarn warn(windows);
  int shown = 0;
  bool forAll = false;
  windows.OnModal = [&](Form&) {
    ++shown;
    EXPECT_EQ(warn.Check1.Value, 0);
    EXPECT_EQ(warn.Label3.Caption.Get(), u"File: /a");
    if (forAll) warn.Check1.Click();
    if (shown % 2 == 0)
      warn.CloseByFrame();
    else
      warn.Command2.Click();
  };
  EXPECT_TRUE(warn.Proceeds(u"/a"));
  EXPECT_FALSE(warn.Proceeds(u"/a"));
  forAll = true;
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(warn.Proceeds(u"/a"));
  EXPECT_EQ(shown, 3);
  warn.BeginRun();
  EXPECT_FALSE(warn.Proceeds(u"/a"));
  EXPECT_EQ(shown, 4);
}

TEST(Working2, CancelByButtonAndFrame) {
  ScriptedWindowSystem windows;
  Working2 working(windows);
  for (const auto& act :
       {+[](Working2& w) { w.Command1.Click(); }, +[](Working2& w) { w.CloseByFrame(); }}) {
    working.Show();
    EXPECT_FALSE(working.CancelClicked);
    working.ShowFile(37, 5000);
    EXPECT_EQ(working.Label4.Caption.Get(), u"file 37 of 5,000");
    act(working);
    EXPECT_TRUE(working.CancelClicked);
    EXPECT_TRUE(working.Visible);
    working.Unload();
  }
  EXPECT_EQ(FileOf(999, 1'234'567), u"file 999 of 1,234,567");
}

TEST_F(UndoWindows, OnTheTerminal) {
  std::ostringstream out, errors;
  EXPECT_EQ(ListRunsOnTerminal(data / "", lock(), out, errors), 0);
  EXPECT_EQ(out.str() + errors.str(), "wordflurn: No Multiple File Flurn operations found.\n");
  Run("First run", {"a", "b"});
  Run("Web pages", {"c", "d"}, true);
  fs::create_symlink("c", files.Path / "link");
  out.str("");
  EXPECT_EQ(ListRunsOnTerminal(data / "", lock(), out, errors), 0);
  EXPECT_TRUE(
      std::regex_match(out.str(), std::regex(" 1  [-0-9]+ at [:0-9]+ \\(Web pages\\)  3 files\n"
                                             " 2  [-0-9]+ at [:0-9]+ \\(First run\\)  2 files\n")))
      << out.str();
  files.Put("d", "my own");
  files.Put("other", "");
  const struct {
    std::vector<String> Arguments;
    int Status;
    std::string Said;
    std::string C, D;
  } cases[]{
      {{}, 1, "--undo needs the number", "new Web pages", "my own"},
      {{u"0"}, 1, "--undo needs the number", "new Web pages", "my own"},
      {{u"x"}, 1, "--undo needs the number", "new Web pages", "my own"},
      {{u"1", u"--what"}, 1, "unknown option --what", "new Web pages", "my own"},
      {{u"3"}, 1, "no run 3", "new Web pages", "my own"},
      {{u"1", files / "other"}, 1, "other is no file of this run", "new Web pages", "my own"},
      {{u"1", files / "made.html"}, 1, "was made by this run", "new Web pages", "my own"},
      {{u"1", files / "link"}, 0, "The selected files have been", "old c", "my own"},
      {{u"1"}, 2, "d\n--force restores them, too.", "old c", "my own"},
      {{u"1", u"--force"}, 0, "In addition, 1 or more files", "old c", "old d"},
  };
  for (const auto& c : cases) {
    std::ostringstream said;
    EXPECT_EQ(UndoOnTerminal(data / "", lock(), c.Arguments, said, said), c.Status) << c.Said;
    EXPECT_NE(said.str().find(c.Said), std::string::npos) << said.str();
    EXPECT_EQ(files.Get("c"), c.C) << c.Said;
    EXPECT_EQ(files.Get("d"), c.D) << c.Said;
  }
  EXPECT_EQ(files.Get("a"), "new First run");
  EXPECT_EQ(data.Get("MFF-Backups/2/undone---d"), "my own");
  locked = true;
  EXPECT_EQ(UndoOnTerminal(data / "", lock(), std::vector<String>{u"2"}, out, errors), 1);
}

}  // namespace
