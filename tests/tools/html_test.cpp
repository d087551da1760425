// HTML both ways: the settings window, the edge cases, and random texts against the rules step by
// step.

#include "support/tool_fixture.h"
#include "text/runtime_error.h"
#include "tools/html_from.h"
#include "tools/html_to.h"
#include "tools/lines/html_page.h"
#include "tools/lines/text_from_html.h"
#include "tools/lines/text_lines.h"
#include "tools/random_text.h"

namespace {

using HtmlTest = ToolTest;

TEST_F(HtmlTest, TextFromPages) {
  struct Case {
    StringView Page, Text;  // behind a line with the BODY tag, and between lines "x"
  };
  const Case cases[] = {
      {u"Some <B>bold</B> text", u"Some bold text\r\n"},
      {u"<P>text", u"\r\ntext\r\n"},
      {u"text<P>", u"text\r\n\r\n"},
      {u"one<p>two", u"one\r\n\r\ntwo\r\n"},
      {u"<P>", u"\r\n"},
      {u"<BR>", u""},
      {u"one<BR>two", u"one\r\ntwo\r\n"},
      {u"one<br>", u"one\r\n"},
      {u"see <A HREF=x>this page</A> now", u"see  now\r\n"},
      {u"see <A HREF=x>this page\r\n</A> now", u"see this page\r\nnow\r\n"},
      {u"a < b and c > d", u"a  d\r\n"},
      {u"a < b", u"a < b\r\n"},
      {u"a > b", u"a > b\r\n"},
      {u"&amp;amp; &amp;lt; &QUOT;", u"& < \"\r\n"},
      {u"&nbsp;&nbsp;text", u"text\r\n"},
      {u"&#169; &#189;", u"Copyright 1/2\r\n"},
      {u"<SCRIPT>a\r\nb<C>\r\nd</SCRIPT>e", u"de\r\n"},
      {u"one<P>two<B>", u"one\r\n\r\ntwo\r\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(ToUtf8(c.Page));
    const String page = u"<HTML>\r\n<BODY>\r\nx\r\n" + String(c.Page) + u"\r\nx";
    EXPECT_EQ(OnBoth(kFromHtml, page), u"x\r\n" + String(c.Text) + u"x\r\n");
    EXPECT_EQ(OnEditor(kFromHtml, page), u"x\r\n" + String(c.Text) + u"x\r\n");
    EXPECT_EQ(ReadWorkFile(App().Fields.TempFile1), page);
  }
  EXPECT_EQ(OnBoth(kFromHtml, u"head\r\n<TITLE>t</TITLE>\r\n<P>\r\n<BODY><P>\r\na\r\n<P>"),
            u"head\r\n\r\na\r\n");
}

// A lone LF that is left over counts as the character that it is on both paths.
TEST_F(HtmlTest, UnixPageGivesTheSameBytesOnBothPaths) {
  const String file = Files.Put(u"page", "<BODY>\nx<br>\t<P><Br> \n");
  FileRun run(file, Data.Path());
  ToolContext onFile = App().Context();
  onFile.File = &run;
  Run(onFile, kFromHtml);
  std::string bytes;
  run.Result().ReadRest([&bytes](std::string_view part) { bytes += part; });
  RichTextBox& box = App().RichTextBox1;
  const TextFormat format = box.LoadFile(file);
  ToolContext onEditor = App().Context();
  Run(onEditor, kFromHtml);
  box.SaveFile(file, format);
  EXPECT_EQ(bytes, BytesOf(file));
}

TEST_F(HtmlTest, PageWithoutBody) {
  for (const StringView page : {u"<HTML><BODY>\r\na", u"a"}) {
    EXPECT_EQ(OnEditor(kFromHtml, page), page);
    EXPECT_EQ(Windows.Notices,
              std::vector<String>{u"No <BODY> tag was found.  In order to convert from HTML to "
                                  u"text, there must be a <BODY> tag in the file."});
    Windows.Notices.clear();
    try {
      OnFile(kFromHtml, page);
      ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Code, kNoBodyTag);
    }
  }
}

const String kFrameEnd = u"<P>\r\n</BODY>\r\n</HTML>\r\n";

String Page(StringView title, StringView body) {
  return u"<HTML>\r\n<HEAD>\r\n<TITLE>" + String(title) + u"</TITLE>\r\n</HEAD>\r\n<BODY>\r\n" +
         String(body) + kFrameEnd;
}

TEST_F(HtmlTest, PagesFromText) {
  const String longLine(101, u'x');
  struct Case {
    String Text, Result;
    int BreakLines = 0;
    int NoTitle = 0;
  };
  const Case cases[] = {
      {u"My Title\r\n-----\r\nFirst para\r\ncontinues\r\n\r\nSecond para",
       Page(u"My Title",
            u"<B><U>My Title</U></B>\r\nFirst para\r\ncontinues\r\n<P>\r\nSecond para\r\n")},
      {u"T\r\na\r\n\r\n\r\n",
       u"<HTML>\r\n<HEAD>\r\n<TITLE>T</TITLE>\r\n</HEAD>\r\n<BODY>\r\n<B><U>T</U></B>\r\na\r\n"
       u"<P>\r\n</BODY>\r\n</HTML>\r\n"},
      {u"T\r\nsee WWW.Some.Org, now http:X ",
       Page(u"T",
            u"<B><U>T</U></B>\r\nsee <A HREF=\"http://www.some.org,\">www.some.org,</A> now "
            u"<A HREF=\"http:x\">http:x</A>\r\n")},
      {u"T\r\nhttp://www.a ftp:b",
       Page(u"T",
            u"<B><U>T</U></B>\r\n<A HREF=\"http://www.a\">http://www.a</A> "
            u"<A HREF=\"ftp:b\">ftp:b</A>\r\n")},
      {longLine, Page(u"", longLine + u"\r\n")},
      {u"\r\n\r\nx", Page(u"", u"<P>\r\nx\r\n")},
      {u"\r\nT\r\n   a\r\nb\r\n\tc",
       u"<HTML>\r\n<HEAD>\r\n<TITLE>T</TITLE>\r\n</HEAD>\r\n<BODY>\r\n<B><U>T</U></B>\r\n<P>   "
       u"a\r\n"
       u"<P>b\r\n<P>\tc\r\n</BODY>\r\n</HTML>\r\n"},
      {u"T\r\n1\r\n2\r\n3\r\n4", Page(u"T", u"<B><U>T</U></B>\r\n1\r\n2\r\n3\r\n4\r\n")},
      {u"T\r\n1\r\n2\r\n3\r\n4\r\n-",
       Page(u"T", u"<B><U>T</U></B>\r\n<BR>1\r\n<BR>2\r\n<BR>3\r\n<BR>4\r\n<BR>-\r\n")},
      {u"   a\r\n   b\r\nc\r\nd",
       Page(u"   a", u"<B><U>   a</U></B>\r\n<BR>&nbsp;&nbsp;&nbsp;b\r\n<BR>c\r\n<BR>d\r\n"), 1},
      {u"a\r\n" + longLine, Page(u"", u"a\r\n" + longLine + u"\r\n"), 0, 1},
  };
  HTML& form = App().Tools.HTML;
  for (const Case& c : cases) {
    SCOPED_TRACE(ToUtf8(c.Text));
    form.Check1.Value = c.BreakLines;
    form.Check2.Value = c.NoTitle;
    EXPECT_EQ(OnBoth(kToHtml, c.Text), c.Result);
  }
  form.Check1.Value = form.Check2.Value = 0;
  App().Fields.NoHtmlHeaderFooter = true;
  EXPECT_EQ(OnBoth(kToHtml, u"T\r\na"), u"<B><U>T</U></B>\r\na\r\n<P>\r\n");
}

TEST_F(HtmlTest, HeaderAndFooterFiles) {
  HTML& form = App().Tools.HTML;
  form.Text1.Text =
      Files.Put(u"head", "<head><title>old</title>\n<Title>old\nold\n</TITLE>x\n<body>\n");
  form.Text2.Text = Files.Put(u"foot", "</body>\n");
  EXPECT_EQ(OnBoth(kToHtml, u"T\r\na"),
            u"<head><TITLE>T</title>\r\n<TITLE>T\r\n</TITLE>x\r\n<body>\r\n<B><U>T</U></B>\r\na\r\n"
            u"<P>\r\n</body>\r\n");
  form.Check2.Value = 1;
  EXPECT_EQ(
      OnBoth(kToHtml, u"T\r\na"),
      u"<head><title>old</title>\r\n<Title>old\r\nold\r\n</TITLE>x\r\n<body>\r\nT\r\na\r\n<P>\r\n"
      u"</body>\r\n");

  std::string longHeader;
  for (int i = 0; i < 501; ++i) longHeader += "x\n";
  String manyLines;
  for (int i = 0; i < 12001; ++i) manyLines += u"x\r\n";
  const struct {
    String Header, Text;
    int Code;
  } failures[] = {
      {Files / u"gone", u"a", kFileNotFound},
      {Files.Put(u"long", longHeader), u"a", kSubscriptOutOfRange},
      {u"Default", manyLines, kSubscriptOutOfRange},
  };
  for (const auto& c : failures) {
    form.Text1.Text = c.Header;
    Windows.Notices.clear();
    EXPECT_EQ(OnEditor(kToHtml, c.Text), c.Text);
    EXPECT_EQ(Windows.Notices.size(), 1u);
    try {
      OnFile(kToHtml, c.Text);
      ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Code, c.Code);
    }
  }
}

TEST_F(HtmlTest, TextOfTooManyLinesIsRefusedWhole) {
  String page = u"<BODY>\r\n";
  for (int i = 0; i < 15001; ++i) page += u"<P>x\r\n";
  EXPECT_EQ(OnEditor(kFromHtml, page), page);
  EXPECT_EQ(
      Windows.Notices,
      std::vector<String>{u"The text has more than 30000 lines, which this tool cannot take."});
  EXPECT_THROW(OnFile(kFromHtml, page), RuntimeError);
}

TEST_F(HtmlTest, DialogChecksItsFiles) {
  HTML& form = App().Tools.HTML;
  form.Show();
  form.Text1.Text = Files / u"gone";
  form.Command1.Click();
  EXPECT_TRUE(form.Visible);
  form.Command5.Click();
  form.Text2.Text = Files / u"gone";
  form.Command1.Click();
  EXPECT_TRUE(form.Visible);
  EXPECT_EQ(Windows.Notices,
            (std::vector<String>{
                u"The filename for the header file is invalid OR the file cannot be accessed.",
                u"The filename for the footer file is invalid OR the file cannot be accessed."}));
  Windows.ChosenFile = Files.Put(u"foot", "x");
  form.Command4.Click();
  form.Command1.Click();
  EXPECT_FALSE(form.Visible);

  App().Fields.DefaultHeaderFile = Files / u"foot";
  App().RichTextBox1.SetText(u"a");
  Windows.OnModal = [&](Form& shown) {
    ASSERT_EQ(&shown, &form);
    EXPECT_EQ(form.Text1.Text.Get(), Files / u"foot");
    form.Check1.Value = 1;
    form.CloseByFrame();
  };
  App().Menu.ToolMenu(u"Convert TO HTML")->Click();
  EXPECT_EQ(App().RichTextBox1.Text(), u"a");
  EXPECT_EQ(form.Check1.Value, 0);
}

}  // namespace
