// Every tool that needs no settings, on the editor and on a file.

#include "support/tool_fixture.h"
#include "text/runtime_error.h"
#include "tools/catalogue.h"

namespace {

using LineTools = ToolTest;

TEST_F(LineTools, ChangeLinesAlikeOnEditorAndFile) {
  struct Case {
    StringView Tool;
    StringView Text;
    StringView Result;
  };
  const Case cases[] = {
      {u"Remove Trailing Carriage Returns", u"a\r\nb \r\n  c\r\n\r\n \r\nd",
       u"a b   c \r\n\r\n\r\nd \r\n"},
      {u"Remove Trailing Carriage Returns", u"\r\n\r\na\r\n\r\n\r\n", u"\r\n\r\na \r\n\r\n\r\n"},
      {u"Remove Trailing Carriage Returns", u"a\r\n\t\r\nb", u"a \t b \r\n"},

      {u"Capitalize 1st Letter on Every Line", u"  hello\r\n123456789 x\r\n1234567890 x\r\nb",
       u"  Hello\r\n123456789 x\r\n1234567890 x\r\nB\r\n"},
      {u"Capitalize 1st Letter on Every Line", u"123456789 x", u"123456789 X\r\n"},
      {u"Capitalize 1st Letter on Every Line", u"1234567890 x\r\n123456789 x",
       u"1234567890 x\r\n123456789 X\r\n"},
      {u"Capitalize 1st Letter on Every Line", u"1234 abc\r\n1234567 abc\r\n123456789 x",
       u"1234 Abc\r\n1234567 abc\r\n123456789 X\r\n"},
      {u"Capitalize 1st Letter on Every Line", u"1234 abc\r\n\r\n123456789 x",
       u"1234 Abc\r\n\r\n123456789 X\r\n"},
      {u"Capitalize 1st Letter on Every Line", u"été", u"éTé\r\n"},

      {u"Capitalize 1st Letter of Sentences", u"hello there. how are you? fine! i think so",
       u"Hello there. How are you? Fine! I think so\r\n"},
      {u"Capitalize 1st Letter of Sentences", u"the taxi is here", u"The taxI is here\r\n"},
      {u"Capitalize 1st Letter of Sentences", u"one i two i've three", u"One i two I've three\r\n"},
      {u"Capitalize 1st Letter of Sentences", u"a? b. c? d.", u"A? B. C? d.\r\n"},
      {u"Capitalize 1st Letter of Sentences", u"3.5 kg of e.g. sugar", u"3.5 Kg of e.G. Sugar\r\n"},
      {u"Capitalize 1st Letter of Sentences", u"end of line.  \r\nnext line",
       u"End of line.  \r\nNext line\r\n"},
      {u"Capitalize 1st Letter of Sentences", u"first\r\n\r\nsecond", u"First\r\n\r\nSecond\r\n"},
      {u"Capitalize 1st Letter of Sentences", u"he said \"no. it\"\r\nnext",
       u"He said \"no. It\"\r\nNext\r\n"},
      {u"Capitalize 1st Letter of Sentences", u"x\r\ny", u"x\r\ny\r\n"},
      {u"Capitalize 1st Letter of Sentences", u"end.\r\n123\r\nabc", u"End.\r\n123\r\nabc\r\n"},
      {u"Capitalize 1st Letter of Sentences", u"end.\r\n \n \r\nabc", u"End.\r\n \n \r\nAbc\r\n"},

      {u"Add Double Spacing", u"a\r\n\r\n  \r\nb\r\nc", u"a\r\n\r\nb\r\n\r\nc\r\n"},
      {u"Add Double Spacing", u"  \r\na", u"  \r\n\r\na\r\n"},
      {u"Remove Double Spacing", u"\r\na\r\n  \r\n\r\nb\r\n\t\r\n", u"a\r\nb\r\n\t\r\n"},
      {u"Remove Blank Lines at Beginning and End of Text", u"\r\n \r\na\r\n\r\nb\r\n\r\n ",
       u"a\r\n\r\nb\r\n"},
      {u"Remove Blank Lines at Beginning and End of Text", u" \r\n\r\n", u""},
      {u"Remove Blank Lines at Beginning and End of Text", u"\t\r\n\r\na", u"\t\r\n\r\na\r\n"},
      {u"Add Blank Line Before Indented Paragraph",
       u"   a\r\n  b\r\n\tc\r\n\td\r\n   \r\n\r\n    e",
       u"\r\n   a\r\n  b\r\n\r\n\tc\r\n\r\n\td\r\n   \r\n\r\n\r\n    e\r\n"},

      {u"Remove Leading \">\" Signs",
       u"> a\r\n>> b\r\n> > c\r\n  > d\r\n>\r\ne > f\r\n a > b\r\n   g\r\n\r\n>h> i\r\n> >j",
       u" a\r\n b\r\n c\r\n d\r\n\r\ne > f\r\n b\r\n   g\r\n\r\nh> i\r\nj\r\n"},
      {u"Remove 1 Leading Space", u"  x\r\ny\r\n\r\n \r\n\tz", u" x\r\ny\r\n\r\n\r\n\tz\r\n"},
      {u"Remove ALL Leading Spaces", u"  \t x\r\n\t\tx\r\n   \r\n\ny\r\n \t \ty",
       u"x\r\n\tx\r\n\r\n\ny\r\n\ty\r\n"},
      {u"Indent Paragraphs", u"a\r\n\r\nb\r\n\r\n    c\r\n \r\nd\r\n\r\n   e\r\n\r\n a\tb\r\n\r\n",
       u"a\r\n\r\n\tb\r\n\r\n    c\r\n \r\n\td\r\n\r\n\t   e\r\n\r\n a\tb\r\n\r\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(ToUtf8(c.Tool) + ": " + ToUtf8(c.Text));
    EXPECT_EQ(OnBoth(c.Tool, c.Text), c.Result);
  }
}

TEST_F(LineTools, FileWithoutLines) {
  App().Tools.SearchReplaceForm.Text1.Text = u"a";
  for (const Tool& tool : Catalogue()) {
    if (tool.Group == ToolGroup::HtmlConversion || tool.StoredName == u"Run Program" ||
        tool.StoredName.starts_with(u"Capitalize Custom")) {
      continue;
    }
    SCOPED_TRACE(ToUtf8(tool.StoredName));
    const bool joins = tool.StoredName == u"Remove Trailing Carriage Returns" ||
                       tool.StoredName == u"Email Cleanup - Standard";
    EXPECT_EQ(OnFile(tool.StoredName, u""), joins ? u"\r\n" : u"");
  }
}

TEST_F(LineTools, WorkOnASelectionAndGoBackInOneStep) {
  const String text = u"> one\r\n> two\r\n> three";
  App().RichTextBox1.SetText(text);
  App().RichTextBox1.SetSelStart(7);
  App().RichTextBox1.SetSelLength(5);
  App().Menu.ToolMenu(u"Remove Leading \">\" Signs")->Click();
  EXPECT_EQ(App().RichTextBox1.Text(), u"> one\r\n two\r\n> three");
  EXPECT_EQ(ReadWorkFile(App().Fields.TempFile1), text);
  App().Menu.UndoEditMenu.Click();
  EXPECT_EQ(App().RichTextBox1.Text(), text);
}

TEST_F(LineTools, WorkingWindowShowsFor45001Characters) {
  struct Case {
    std::size_t Length;
    StringView Tool;
    std::size_t Shown;
  };
  const Case cases[] = {{45000, u"Remove 1 Leading Space", 0},
                        {45001, u"Remove 1 Leading Space", 1},
                        {45001, u"All Upper Case", 0}};
  for (const Case& c : cases) {
    Windows.Shown.clear();
    OnEditor(c.Tool, String(c.Length, u'a'));
    EXPECT_EQ(Windows.Shown.size(), c.Shown) << ToUtf8(c.Tool);
    EXPECT_FALSE(App().Messages.Working.Visible);
  }
}

TEST_F(LineTools, TableHolds30000Lines) {
  String text;
  for (int i = 0; i < 30000; ++i) text += u"x\r\n";
  for (const StringView name :
       {u"Indent Paragraphs", u"Remove Blank Lines at Beginning and End of Text",
        u"Add Trailing Carriage Returns"}) {
    SCOPED_TRACE(ToUtf8(name));
    EXPECT_EQ(OnBoth(name, text), text);
    EXPECT_TRUE(Windows.Notices.empty());
    EXPECT_EQ(OnEditor(name, text + u"y"), text + u"y");
    EXPECT_EQ(
        Windows.Notices,
        std::vector<String>{u"The text has more than 30000 lines, which this tool cannot take."});
    Windows.Notices.clear();
    try {
      OnFile(name, text + u"y");
      ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Code, kSubscriptOutOfRange);
    }
  }
}

}  // namespace
