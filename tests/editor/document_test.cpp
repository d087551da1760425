// New, Open, Save, Save As, exit: prompts, titles, states.

#include "editor/document.h"

#include <filesystem>

#include "support/app_fixture.h"

namespace {

constexpr char kMarker[] = "**This file has been encrypted with WordFlurn**";
constexpr StringView kSaveError = u"An error occured while trying to save.";

class DocumentTest : public AppTest {
 protected:
  void Type(StringView text) { App().RichTextBox1.SetSelText(text); }
};

TEST_F(DocumentTest, OpenShowsTheShortNameAndTheStates) {
  Start();
  EXPECT_EQ(App().Caption.Get(), u"Untitled - WordFlurn 2.0");
  struct Case {
    const char* Bytes;
    bool ReadOnly;
    StringView Title;
    bool Locked;
    bool ReadOnlyFile;
    bool ReadOnlyOnDisk;
  };
  const std::string marked = std::string("x\r\n") + kMarker + "\r\ny";
  const Case cases[] = {
      {"a\r\nb", false, u"WordFlurn 2.0 - f.txt", false, false, false},
      {"a\r\nb", true, u"WordFlurn 2.0 (read-only) - f.txt", false, true, true},
      {marked.c_str(), false, u"WordFlurn 2.0 (encrypted) - f.txt", true, false, false},
      {marked.c_str(), true, u"WordFlurn 2.0 (encrypted) - f.txt", true, false, false},
      {"**THIS FILE HAS BEEN ENCRYPTED WITH WORDFLURN**", false, u"WordFlurn 2.0 - f.txt", false,
       false, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(ToUtf8(c.Title));
    const String file = Files.Put(u"f.txt", c.Bytes);
    SetReadOnly(file, c.ReadOnly);
    Open(file);
    EXPECT_EQ(App().Caption.Get(), c.Title);
    EXPECT_EQ(App().RichTextBox1.Text(), FromUtf8(c.Bytes));
    EXPECT_EQ(App().RichTextBox1.Locked.Get(), c.Locked);
    EXPECT_EQ(App().Fields.ReadOnlyFile, c.ReadOnlyFile);
    EXPECT_EQ(IsReadOnly(file), c.ReadOnlyOnDisk);
    App().Menu.NewMenu.Click();
    SetReadOnly(file, false);
  }
  EXPECT_TRUE(Windows.Questions.empty());
}

// Opening makes an encrypted file writable; leaving it, saved or left alone, makes it read-only.
TEST_F(DocumentTest, EncryptedFileIsReadOnlyAgainOnceItIsLeft) {
  const String file = Files / u"f.txt";
  const struct {
    const char* Name;
    std::function<void(ChangeCase&)> Act;
    bool ReadOnly;
  } cases[] = {
      {"new", [](ChangeCase& app) { app.Menu.NewMenu.Click(); }, true},
      {"exit", [](ChangeCase& app) { app.CloseByFrame(); }, true},
      {"saved, then new",
       [](ChangeCase& app) {
         app.RichTextBox1.SetText(FromUtf8(kMarker) + u" more");
         app.Menu.SaveMenu.Click();
         app.Menu.NewMenu.Click();
       },
       true},
      {"another one cancelled", [](ChangeCase& app) { app.Menu.OpenMenu.Click(); }, false},
      {"another one fails", [&](ChangeCase&) { Open(Files / u"-"); }, false},
      {"fails, then new", [&](ChangeCase& app) { Open(Files / u"-"), app.Menu.NewMenu.Click(); },
       true},
      {"the same again", [&](ChangeCase&) { Open(file); }, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    Start();
    SetReadOnly(Files.Put(u"f.txt", kMarker), true);
    Open(file);
    ASSERT_FALSE(IsReadOnly(file));
    Windows.ChosenFile.reset();
    c.Act(App());
    EXPECT_EQ(IsReadOnly(file), c.ReadOnly);
    SetReadOnly(file, false);
  }
}

TEST_F(DocumentTest, EveryRoadOutAsksAboutChanges) {
  const StringView question =
      u"The text in this file has changed.  Would you like to save the changes before ";
  const struct {
    StringView Question;
    std::function<void(ChangeCase&)> Leave;
  } roads[] = {
      {u"opening another file?", [](ChangeCase& app) { app.Menu.OpenMenu.Click(); }},
      {u"opening a new file?", [](ChangeCase& app) { app.Menu.NewMenu.Click(); }},
      {u"exiting?", [](ChangeCase& app) { app.CloseByFrame(); }},
  };
  for (const auto& road : roads) {
    for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
      SCOPED_TRACE(ToUtf8(road.Question) + " " + std::to_string(static_cast<int>(answer)));
      Windows.QuitStatus.reset();
      Start();
      const String file = Files.Put(u"f.txt", "old");
      const String other = Files.Put(u"other.txt", "other");
      Open(file);
      Type(u"new ");
      Windows.ChosenFile = other;
      Windows.Answers = {answer};
      Windows.Questions.clear();
      road.Leave(App());
      EXPECT_EQ(Windows.Questions, std::vector{String(question) + String(road.Question)});
      EXPECT_EQ(BytesOf(file), answer == Answer::Yes ? "new old" : "old");
      const bool stayed = App().RichTextBox1.Text() == u"new old" && !Windows.QuitStatus &&
                          App().Caption == u"WordFlurn 2.0 - f.txt";
      EXPECT_EQ(stayed, answer == Answer::Cancel);
    }
  }
}

TEST_F(DocumentTest, CommandLineNamesShowThePath) {
  const String file = Files.Put(u"my notes.txt", "abc");
  Start(file + u" /eof /NoSplash");
  EXPECT_EQ(App().Caption.Get(), u"WordFlurn 2.0 - " + file);
  EXPECT_EQ(App().RichTextBox1.SelStart(), 3u);
  Type(u"!");
  App().Menu.SaveMenu.Click();
  EXPECT_EQ(App().Caption.Get(), u"WordFlurn 2.0 - " + file);
  EXPECT_EQ(BytesOf(file), "abc!");

  const String fresh = Files / u"fresh.txt";
  Start(fresh);
  EXPECT_EQ(App().Caption.Get(), u"WordFlurn 2.0 - NEW FILE in " + fresh);
  Type(u"x");
  App().Menu.SaveMenu.Click();
  EXPECT_EQ(BytesOf(fresh), "x");

  Start(Files / u"absent.txt /NOSPLASH");
  EXPECT_EQ(App().Caption.Get(), u"Untitled - WordFlurn 2.0");
  EXPECT_FALSE(App().Fields.HasFileName);
}

// From a file "old" that is open with "new " typed in front: what the user wants kept is kept, and
// a save goes to the file that the text belongs to.
TEST_F(DocumentTest, NothingIsLost) {
  const String f = Files / u"f.txt", g = Files / u"g.txt", nowhere = Files / u"none/g.txt";
  const auto readOnly = [&](Answer answer, const String& chosen) {
    SetReadOnly(f, true);
    Windows.Answers = {Answer::No};
    Open(f);
    Type(u"new ");
    Windows.Answers = {answer};
    Windows.ChosenFile = chosen;
    App().Menu.SaveMenu.Click();
    SetReadOnly(f, false);
  };
  const struct {
    const char* Name;
    std::function<void(ChangeCase&)> Act;
    StringView Text, Title;
    std::string InF, InG;
    bool Saved;
    bool ToldOfFailure = false;
    bool Left = false;
  } cases[] = {
      {"saved", [](auto& app) { app.Menu.SaveMenu.Click(); }, u"new old", u" - f.txt", "new old",
       "", true},
      {"new text; the wanted Save As cancelled",
       [&](auto& app) {
         Windows.Answers = {Answer::No, Answer::Yes};
         app.Menu.NewMenu.Click();
         Type(u"only copy");
         Windows.ChosenFile.reset();
         app.Menu.NewMenu.Click();
       },
       u"only copy", u"Untitled", "old", "", false},
      {"exit; the wanted save fails",
       [&](auto& app) {
         DeleteFile(f);
         MakeFolder(f, 0700);
         Windows.Answers = {Answer::Yes};
         app.CloseByFrame();
         std::filesystem::remove(ToUtf8(f));
       },
       u"new old", u" - f.txt", "", "", false, true},
      {"read-only, another name refused", [&](auto&) { readOnly(Answer::No, g); }, u"new old",
       u" (read-only) - f.txt", "old", "", false},
      {"read-only, cancelled", [&](auto&) { readOnly(Answer::Cancel, g); }, u"new old",
       u" (read-only) - f.txt", "old", "", false},
      {"read-only, another name", [&](auto&) { readOnly(Answer::Yes, g); }, u"new old", u" - g.txt",
       "old", "new old", true},
      {"open fails, then save",
       [&](auto& app) {
         for (const String& bad : {nowhere, Files.Path()}) {
           Windows.Answers = {Answer::No};
           Open(bad);
           EXPECT_FALSE(app.Status.Bar.Message.Get().empty());
         }
         app.Menu.SaveMenu.Click();
       },
       u"new old", u" - f.txt", "new old", "", true},
      {"Save As fails, then save",
       [&](auto& app) {
         Windows.ChosenFile = nowhere;
         app.Menu.SaveAsMenu.Click();
         app.Menu.SaveMenu.Click();
       },
       u"new old", u" - f.txt", "new old", "", true, true},
      {"saved, Save As cancelled, exit without a question",
       [&](auto& app) {
         app.Menu.SaveMenu.Click();
         Windows.ChosenFile.reset();
         app.Menu.SaveAsMenu.Click();
         app.CloseByFrame();
       },
       u"new old", u" - f.txt", "new old", "", true, false, true},
      {"new, saved twice, another format, exit",
       [&](auto& app) {
         Windows.Answers = {Answer::No, Answer::Yes};
         app.Menu.NewMenu.Click();
         Type(u"a\r\nb");
         Windows.ChosenFile = g;
         app.Menu.SaveMenu.Click();
         app.Menu.SaveMenu.Click();
         app.Status.LineEndsChoices[1].Click();
         EXPECT_FALSE(app.Fields.FileSaved);
         app.CloseByFrame();
       },
       u"a\r\nb", u" - g.txt", "old", "a\nb", true, false, true},
      {"bare returns",
       [&](auto& app) {
         Windows.Answers = {Answer::No};
         Open(Files.Put(u"f.txt", "a\rb\nc\rd"));
         Type(u"!");
         app.Menu.SaveMenu.Click();
       },
       u"!a\r\nb\nc\r\nd", u" - f.txt", "!a\r\nb\nc\r\nd", "", true},
      {"a file dropped, first refused",
       [&](auto& app) {
         Windows.Answers = {Answer::Cancel, Answer::No};
         Files.Put(u"g.txt", "theirs");
         app.DropFiles({g});
         EXPECT_EQ(app.RichTextBox1.Text(), u"new old");
         app.DropFiles({g, f});
       },
       u"theirs", u" - g.txt", "old", "theirs", false},
      // What could not be opened is there nevertheless, and a save must not replace it.
      {"a new file over a folder",
       [&](auto&) {
         MakeFolder(Files / u"folder", 0700);
         Start(Files / u"folder");
         EXPECT_FALSE(App().Status.Bar.Message.Get().empty());
         Type(u"x");
         Windows.Answers = {Answer::Yes};
         Windows.ChosenFile = g;
         App().Menu.SaveMenu.Click();
       },
       u"x", u" - g.txt", "old", "x", true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    DeleteFileQuietly(g);
    Windows.QuitStatus.reset();
    Windows.Notices.clear();
    Start();
    Open(Files.Put(u"f.txt", "old"));
    Type(u"new ");
    c.Act(App());
    EXPECT_EQ(App().RichTextBox1.Text(), c.Text);
    EXPECT_TRUE(Contains(App().Caption.Get(), c.Title)) << ToUtf8(App().Caption.Get());
    EXPECT_EQ(FileExists(f) ? BytesOf(f) : "", c.InF);
    EXPECT_EQ(FileExists(g) ? BytesOf(g) : "", c.InG);
    EXPECT_EQ(App().Fields.FileSaved, c.Saved);
    EXPECT_EQ(Windows.Notices, std::vector(c.ToldOfFailure ? 1 : 0, String(kSaveError)));
    EXPECT_EQ(Windows.QuitStatus.has_value(), c.Left);
    EXPECT_TRUE(Windows.Answers.empty());
  }
}

// The status bar's choices decide what the next save writes.
TEST_F(DocumentTest, CopyIsNoMoreReadableThanTheFileItIsFrom) {
  using std::filesystem::perms;
  constexpr perms kOwnersOnly = perms::owner_read | perms::owner_write;
  const String file = Files.Put(u"f.txt", "private");
  const String copy = Files / u"copy.txt";
  std::filesystem::permissions(ToUtf8(file), kOwnersOnly);
  Start();
  Open(file);
  Windows.ChosenFile = copy;
  App().Menu.SaveAsMenu.Click();
  EXPECT_EQ(BytesOf(copy), "private");
  EXPECT_EQ(std::filesystem::status(ToUtf8(copy)).permissions(), kOwnersOnly);
}

TEST_F(DocumentTest, NamesWhatASaveThatWasCutOffHasLeft) {
  const String file = Files.Put(u"f.txt", "text");
  const String left = Files / u".wordflurn-0123456789abcdef";
  const auto makeLeftover = [&] {
    Files.Put(FileNameOf(left), "new text");
    std::filesystem::last_write_time(
        ToUtf8(left), std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
  };
  Start();
  const auto isNamed = [&] { return Contains(App().Status.Bar.Message.Get(), left); };
  makeLeftover();
  Open(file);
  EXPECT_TRUE(isNamed());
  Type(u"more ");
  EXPECT_FALSE(isNamed());
  App().Menu.SaveMenu.Click();
  EXPECT_TRUE(isNamed());
  App().RichTextBox1.SetText(u"new text");
  App().Menu.SaveMenu.Click();
  EXPECT_FALSE(isNamed());
  EXPECT_FALSE(FileExists(left));
}

TEST_F(DocumentTest, EncodingAndLineEndsAreWhatTheUserChose) {
  struct Case {
    const char* Name;
    std::string Before;
    int EncodingChoice;  // -1: none
    int LineEndsChoice;
    std::string After;
    StringView Status;
  };
  const Case cases[] = {
      {"untouched, every kind of line end", "a\rb\r\nc\nd", -1, -1, "a\rb\r\nc\nd", u"UTF-8 mixed"},
      {"mark", "a\xC3\xA9", 1, -1,
       "\xEF\xBB\xBF"
       "a\xC3\xA9",
       u"UTF-8 with BOM CR LF"},
      {"UTF-16", "a\n", 2, -1,
       std::string("\xFF\xFE"
                   "a\0\n\0",
                   6),
       u"UTF-16 LE LF"},
      {"one byte a character", "a\xC3\xA9", 4, -1, "a\xE9", u"Windows-1252 CR LF"},
      {"a page that lacks a character", "\xCE\xA9", 4, -1, "\xCE\xA9", u"UTF-8 CR LF"},
      {"to LF", "a\rb\r\nc\nd", -1, 1, "a\nb\nc\nd", u"UTF-8 LF"},
      {"to CR LF", "a\rb\r\nc\nd", -1, 0, "a\r\nb\r\nc\r\nd", u"UTF-8 CR LF"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Name);
    Start();
    const String file = Files.Put(u"f.txt", c.Before);
    Open(file);
    StatusLine& status = App().Status;
    if (c.EncodingChoice >= 0) status.EncodingChoices[c.EncodingChoice].Click();
    if (c.LineEndsChoice >= 0) status.LineEndsChoices[c.LineEndsChoice].Click();
    EXPECT_EQ(App().Fields.TextChanged, c.EncodingChoice >= 0 || c.LineEndsChoice >= 0);
    App().Menu.SaveMenu.Click();
    EXPECT_EQ(BytesOf(file), c.After);
    EXPECT_EQ(status.EncodingPanel.Text.Get() + u" " + status.LineEndsPanel.Text.Get(), c.Status);
  }
}

// Whatever a file holds: opened and saved it is the same, byte for byte.
TEST_F(DocumentTest, OpenedAndSavedUnchangedIsTheSameFile) {
  std::vector<std::string> contents = {"", "\r", "\n", "\r\n", "a\n\r\nb\r\rc\n"};
  const std::string marks[] = {"", "\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"};
  const std::string bodies[] = {
      "plain\r\ntext",
      "unix\ntext\n",
      "old\rtext\r",
      "all\rkinds\nof\r\nends\n\r",
      std::string("NUL\0 and \x1A", 11),
      "caf\xE9 \x81\x93\x94",
      "caf\xC3\xA9 \xE2\x80\xA8 \xF0\x9F\x98\x80",
      "overlong \xC0\xAF, half \xE2\x82, surrogate \xED\xA0\x80",
      std::string("\x00\xD8\x41\x00\x0D\x00\x0A\x00\x28\x20", 10),
      "odd number of bytes",
      "\xEF\xB7\x90\xEF\xB7\x91\xEF\xB7\x92\xEF\xBF\xBF",
  };
  for (const std::string& mark : marks) {
    for (const std::string& body : bodies) contents.push_back(mark + body);
  }
  Start();
  for (const std::string& content : contents) {
    SCOPED_TRACE(testing::PrintToString(content));
    const String file = Files.Put(u"awkward", content);
    Open(file);
    App().Menu.SaveMenu.Click();
    EXPECT_TRUE(App().Fields.FileSaved);
    EXPECT_EQ(BytesOf(file), content);
  }
}

}  // namespace
