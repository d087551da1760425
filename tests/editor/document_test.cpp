// New, Open, Save, Save As, exit: prompts, titles, states.

#include "editor/document.h"

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
    EXPECT_TRUE(App().Fields.HasFileName);
    EXPECT_FALSE(App().Fields.TextChanged);
    App().Menu.NewMenu.Click();
    SetReadOnly(file, false);
  }
  EXPECT_TRUE(Windows.Questions.empty());
  EXPECT_TRUE(Windows.Notices.empty());
}

TEST_F(DocumentTest, EncryptedFileLeftAloneOrSavedIsReadOnlyAgain) {
  struct Case {
    const char* Name;
    std::function<void(ChangeCase&)> Leave;
  };
  const Case cases[] = {
      {"new", [](ChangeCase& app) { app.Menu.NewMenu.Click(); }},
      {"exit", [](ChangeCase& app) { app.CloseByFrame(); }},
      {"saved, then new",
       [](ChangeCase& app) {
         app.RichTextBox1.SetText(FromUtf8(kMarker) + u" more");
         app.Menu.SaveMenu.Click();
         app.Menu.NewMenu.Click();
       }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Name);
    Start();
    const String file = Files.Put(u"f.txt", kMarker);
    SetReadOnly(file, true);
    Open(file);
    ASSERT_FALSE(IsReadOnly(file));
    c.Leave(App());
    EXPECT_TRUE(IsReadOnly(file));
    SetReadOnly(file, false);
  }
}

TEST_F(DocumentTest, EveryRoadOutAsksAboutChanges) {
  struct Road {
    StringView Question;
    std::function<void(ChangeCase&)> Leave;
  };
  const Road roads[] = {
      {u"The text in this file has changed.  Would you like to save the changes before opening "
       u"another file?",
       [](ChangeCase& app) { app.Menu.OpenMenu.Click(); }},
      {u"The text in this file has changed.  Would you like to save the changes before opening a "
       u"new file?",
       [](ChangeCase& app) { app.Menu.NewMenu.Click(); }},
      {u"The text in this file has changed.  Would you like to save the changes before exiting?",
       [](ChangeCase& app) { app.CloseByFrame(); }},
  };
  for (const Road& road : roads) {
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
      EXPECT_EQ(Windows.Questions, std::vector{String(road.Question)});
      EXPECT_EQ(BytesOf(file), answer == Answer::Yes ? "new old" : "old");
      const bool stayed = App().RichTextBox1.Text() == u"new old" && !Windows.QuitStatus;
      EXPECT_EQ(stayed, answer == Answer::Cancel);
      if (stayed) {
        EXPECT_EQ(App().Caption.Get(), u"WordFlurn 2.0 - f.txt");
      }
    }
  }
}

TEST_F(DocumentTest, TextStaysWhenTheWantedSaveDoesNotHappen) {
  Start();
  Type(u"only copy");
  Windows.Answers = {Answer::Yes};
  Windows.ChosenFile.reset();  // Cancel in the Save As dialog
  App().Menu.NewMenu.Click();
  EXPECT_EQ(App().RichTextBox1.Text(), u"only copy");

  Windows.Answers = {Answer::Yes};
  Windows.ChosenFile = Files / u"no such folder/f.txt";
  App().CloseByFrame();
  EXPECT_FALSE(Windows.QuitStatus);
  EXPECT_EQ(App().RichTextBox1.Text(), u"only copy");
  EXPECT_EQ(Windows.Notices, std::vector{String(kSaveError)});
  EXPECT_FALSE(App().Fields.FileSaved);
}

TEST_F(DocumentTest, ReadOnlyFileIsSavedUnderAnotherName) {
  const String question =
      u"This file is a read-only file and cannot be saved to the same file.  Would you like to "
      u"save to a different file name?";
  const String file = Files.Put(u"f.txt", "old");
  SetReadOnly(file, true);
  for (const Answer answer : {Answer::No, Answer::Cancel, Answer::Yes}) {
    Start();
    Open(file);
    Type(u"new ");
    Windows.Answers = {answer};
    Windows.Questions.clear();
    Windows.ChosenFile = Files / u"g.txt";
    App().Menu.SaveMenu.Click();
    EXPECT_EQ(Windows.Questions, std::vector{question});
    EXPECT_EQ(BytesOf(file), "old");
    const bool saved = answer == Answer::Yes;
    EXPECT_EQ(FileExists(Files / u"g.txt"), saved);
    EXPECT_EQ(App().Caption.Get(),
              saved ? u"WordFlurn 2.0 - g.txt" : u"WordFlurn 2.0 (read-only) - f.txt");
    EXPECT_EQ(App().Fields.FileSaved, saved);
    EXPECT_EQ(App().Fields.ReadOnlyFile, !saved);
  }
  EXPECT_EQ(BytesOf(Files / u"g.txt"), "new old");
}

TEST_F(DocumentTest, FailedOpenLeavesTheDocumentAndItsFile) {
  Start();
  const String file = Files.Put(u"f.txt", "old");
  Open(file);
  Type(u"new ");
  for (const StringView bad : {u"missing.txt", u""}) {  // "" is the folder itself
    Windows.Answers = {Answer::No};
    Open(Files / bad);
    EXPECT_EQ(App().RichTextBox1.Text(), u"new old");
    EXPECT_FALSE(App().Status.Bar.Message.Get().empty());
  }
  EXPECT_TRUE(Windows.Notices.empty());
  App().Menu.SaveMenu.Click();
  EXPECT_EQ(BytesOf(file), "new old");
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

TEST_F(DocumentTest, DroppedFileOpensAfterThePrompt) {
  Start();
  Type(u"mine");
  Windows.Answers = {Answer::Cancel, Answer::No};
  const String file = Files.Put(u"f.txt", "theirs");
  App().DropFiles({file});
  EXPECT_EQ(App().RichTextBox1.Text(), u"mine");
  App().DropFiles({file});
  EXPECT_EQ(App().RichTextBox1.Text(), u"theirs");
  EXPECT_EQ(App().Caption.Get(), u"WordFlurn 2.0 - f.txt");
}

// The status bar's choices decide what the next save writes.
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

TEST_F(DocumentTest, BareReturnsBecomeWholeLineEndsOnceTheTextChanged) {
  Start();
  const String file = Files.Put(u"f.txt", "a\rb\nc\rd");
  Open(file);
  Type(u"!");
  App().Menu.SaveMenu.Click();
  EXPECT_EQ(BytesOf(file), "!a\r\nb\nc\r\nd");
}

// What could not be opened is there nevertheless, and a save must not replace it.
TEST_F(DocumentTest, NewFileOverSomethingUnreadableAsksForAnotherName) {
  MakeFolder(Files / u"folder", 0700);
  Start(Files / u"folder");
  EXPECT_EQ(App().Caption.Get(), u"WordFlurn 2.0 - NEW FILE in " + Files / u"folder");
  EXPECT_FALSE(App().Status.Bar.Message.Get().empty());
  Type(u"x");
  Windows.Answers = {Answer::Yes};
  Windows.ChosenFile = Files / u"other.txt";
  App().Menu.SaveMenu.Click();
  EXPECT_EQ(Windows.Questions.size(), 1u);
  EXPECT_EQ(BytesOf(Files / u"other.txt"), "x");
}

TEST_F(DocumentTest, FailedSaveAsLeavesTheDocumentWithItsFile) {
  Start();
  const String file = Files.Put(u"f.txt", "old");
  Open(file);
  Type(u"new ");
  Windows.ChosenFile = Files / u"no such folder/g.txt";
  App().Menu.SaveAsMenu.Click();
  EXPECT_EQ(Windows.Notices, std::vector{String(kSaveError)});
  App().Menu.SaveMenu.Click();
  EXPECT_EQ(BytesOf(file), "new old");
}

TEST_F(DocumentTest, EncryptedFileIsNotRelockedUnderTheDocument) {
  Start();
  const String file = Files.Put(u"f.txt", kMarker);
  SetReadOnly(file, true);
  Open(file);
  for (const std::optional<String>& choice :
       {std::optional<String>(), std::optional(Files / u"-")}) {
    Windows.ChosenFile = choice;
    App().Menu.OpenMenu.Click();
    EXPECT_FALSE(IsReadOnly(file));
  }
  Open(file);
  EXPECT_FALSE(IsReadOnly(file));
  EXPECT_EQ(App().Caption.Get(), u"WordFlurn 2.0 (encrypted) - f.txt");
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
