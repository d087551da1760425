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

// One page as the rules say, on copies of the text.
class SlowFromHtml {
 public:
  void Line(String s, LineSink& out) {
    bool forceBlank = false, paraSeen = false, breakSeen = false;
    String before, after;
    while (true) {
      const std::size_t lt = s.find(u'<');
      if (lt == String::npos) break;
      const std::size_t gt = s.find(u'>', lt);
      if (gt == String::npos) break;
      before = s.substr(0, lt);
      after = s.substr(gt + 1);
      const String tag = s.substr(lt + 1, gt - lt - 1);
      const String upper = UCase(tag);
      lastTag_ = upper;
      if (upper.starts_with(u"BODY")) BodySeen = true;
      if (!BodySeen) {
        s.clear();
        continue;
      }
      if (upper.starts_with(u"A HREF")) {
        const std::size_t end = UCase(s).find(u"</A>", gt + 1);
        if (end != String::npos) after = s.substr(end + 4);
      }
      const String allUpper = UCase(s);
      if (allUpper.find(u"<P>") == lt) {
        if (before.empty() && after.empty()) {
          forceBlank = true;
          s.clear();
          continue;
        }
        paraSeen = true;
        after = LTrim(after);
        if (before.empty())
          s = u"\r\n" + after;
        else if (after.empty())
          s = before + u"\r\n";
        else
          s = before + u"\r\n\r\n" + after;
      } else if (allUpper.find(u"<BR>") == lt) {
        breakSeen = true;
        after = LTrim(after);
        s = IsBlank(before) != IsBlank(after) ? before + after : before + u"\r\n" + after;
      } else {
        s = before + after;
      }
    }
    if (lastTag_.starts_with(u"/SCRIPT"))
      inScript_ = false;
    else if (lastTag_.starts_with(u"SCRIPT"))
      inScript_ = true;
    if (inScript_) return;
    Decode(s);
    if (paraSeen && Trim(s) == kCrLf) {
      s.clear();
      forceBlank = true;
    }
    if (breakSeen && Trim(s) == kCrLf) {
      s.clear();
      forceBlank = false;
    }
    const auto same = [&] {
      return !before.empty() && after.empty() && s == before && !s.starts_with(kCr);
    };
    if (std::size_t end = s.find(kCrLf); paraSeen && same() && end != String::npos) {
      const String rest = end + 4 < s.size() ? s.substr(end + 4) : String();
      s = s.substr(0, end) + u"\r\n" + (rest.empty() ? rest : u"\r\n" + rest);
    }
    if (std::size_t end = s.find(kCrLf); breakSeen && same() && end != String::npos) {
      const String rest = s.substr(end + 2);
      s = s.substr(0, end) + (rest.empty() ? rest : u"\r\n" + rest);
    }
    if (forceBlank || !IsBlank(s)) out.Print(LTrim(s));
  }

  bool BodySeen = false;

 private:
  static void Decode(String& s) {
    constexpr StringView kTable[][2] = {{u"&QUOT;", u"\""}, {u"&NBSP;", u" "},
                                        {u"&AMP;", u"&"},   {u"&LT;", u"<"},
                                        {u"&GT;", u">"},    {u"&#169;", u"Copyright"}};
    for (bool any = true; any;) {
      any = false;
      for (const auto& [name, text] : kTable) {
        for (std::size_t place; (place = UCase(s).find(name)) != String::npos; any = true)
          s.replace(place, name.size(), text);
      }
    }
  }

  String lastTag_;
  bool inScript_ = false;
};

TEST(TextFromHtml, AgreesWithTheRulesStepByStep) {
  constexpr StringView kTokens[] = {
      u"<",        u">",    u"<P>",   u"<p>",      u"<BR>",      u"<br>",       u"<BODY>",
      u"<BODY x>", u"</a>", u"</A>",  u"<SCRIPT>", u"</script>", u"<A HREF=x>", u"<a href>",
      u"<B>",      u"&lt;", u"&AMP;", u"amp;",     u"lt;",       u"&",          u"&nbsp;",
      u"&#169;",   u"a",    u" ",     u"   ",      u"\t",        u"\n",         u"P>",
      u"<P>",      u"<BR>", u"a",     u" "};
  RandomText random(4);
  for (int i = 0; i < 20000; ++i) {
    TextFromHtml fast;
    SlowFromHtml slow;
    TextSink fastText, slowText;
    String page;
    for (int line = 0; line < 4; ++line) {
      const String text = line == 0 ? String(u"<BODY>") : random.Of(kTokens, 9);
      page += text + u"\n";
      fast.Line(text, fastText);
      slow.Line(text, slowText);
      ASSERT_EQ(fastText.Text, slowText.Text) << ToUtf8(page);
    }
    ASSERT_EQ(fast.BodySeen(), slow.BodySeen);
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

// The link pass as the rules say, on the changing line.
String SlowLinks(String line) {
  for (const bool ftp : {false, true}) {
    std::size_t place = 1;
    while (true) {
      const String lower = LCase(line);
      std::size_t s = ftp ? InStr(lower, u"ftp:", place) : InStr(lower, u"www.", place);
      const std::size_t http = ftp ? 0 : InStr(lower, u"http:", place);
      if (s == 0 || (http != 0 && http < s)) s = http;
      if (s == 0) break;
      std::size_t e = InStr(line, u" ", s);
      String tail;
      String address;
      if (e == 0 || e == line.size()) {
        e = line.size();
        address = line.substr(s - 1);
      } else {
        tail = line.substr(e - 1);
        address = line.substr(s - 1, e - s);
      }
      address = LCase(Trim(address));
      const String scheme = address.starts_with(u"www.") ? u"http://" : u"";
      line = line.substr(0, s - 1) + u"<A HREF=\"" + scheme + address + u"\">" + address + u"</A>" +
             tail;
      place = InStr(line, u"</A>", e) + 4;
    }
  }
  return line;
}

TEST_F(HtmlTest, TextOfTooManyLinesIsRefusedWhole) {
  String page = u"<BODY>\r\n";
  for (int i = 0; i < 15001; ++i) page += u"<P>x\r\n";
  EXPECT_EQ(OnEditor(kFromHtml, page), page);
  EXPECT_EQ(Windows.Notices,
            std::vector<String>{u"The text has more than 30000 lines and was not changed."});
  EXPECT_THROW(OnFile(kFromHtml, page), RuntimeError);
}

// The body as the rules say.
String SlowBody(const std::vector<String>& lines, std::size_t state, bool breaks, bool noTitle) {
  const auto row = [&](std::size_t i) { return i < lines.size() ? lines[i] : String(); };
  constexpr StringView kMarks = u"1234567890-*~";
  const auto kind = [&](std::size_t i) {
    return !row(i).empty() && kMarks.find(row(i)[0]) != StringView::npos;
  };
  std::vector<std::size_t> list;
  for (std::size_t i = 1; i < lines.size(); ++i) {
    if (kind(i)) list.push_back(i);
  }
  std::size_t n = list.size();
  std::size_t behindBlank = 0;
  for (std::size_t k = 1; k < list.size(); ++k) {
    if (list.size() > 4 && list[k] - list[k - 1] > 5) n = 0;
    if (IsBlank(row(list[k] - 1))) ++behindBlank;
  }
  if (n <= 4 || behindBlank > 4) n = 0;
  const std::size_t first = n != 0 && IsBlank(row(list[0] - 1)) ? list[0] : 0;
  String out, first3, first5;
  bool gap = false;
  for (std::size_t i = state; i < lines.size(); ++i) {
    const String& line = lines[i];
    const bool blank = IsBlank(line);
    const auto write = [&](const String& text) { out += text + u"\r\n"; };
    const auto take3 = [&] {
      if (line.size() >= 3) first3 = line.substr(0, 3);
      return first3 == u"   ";
    };
    if (gap && blank) continue;
    if (breaks) {
      if (blank) {
        write(u"<P>" + line);
        gap = true;
        continue;
      }
      const bool wasGap = gap;
      gap = false;
      if (!take3()) {
        write(wasGap || i == 1 ? line : u"<BR>" + line);
        continue;
      }
      String spaces;
      std::size_t count = 0;
      for (; line[count] == u' '; ++count) spaces += u"&nbsp;";
      write((wasGap ? String() : String(u"<BR>")) + spaces + line.substr(count));
      continue;
    }
    if (gap) {
      write(line);
      gap = false;
    } else if (i == first) {
      write(line);
    } else if (n != 0 && kind(i)) {
      write(u"<BR>" + line);
    } else if (blank || line[0] == u'\t') {
      write(u"<P>" + line);
      gap = true;
    } else if (take3()) {
      write(u"<P>" + line);
    } else {
      if (line.size() >= 5) first5 = line.substr(0, 5);
      if (first5 == u"-----" && i == state && !noTitle) continue;
      write((first5 == u"-----" ? u"<BR>" : u"") + line);
    }
  }
  if (!gap) out += u"<P>\r\n";
  return out;
}

TEST(PrintHtmlPage, AgreesWithTheRulesStepByStep) {
  const String longLine(101, u'x');
  const StringView tokens[] = {u"",      u" ",           u"   ",     u"   x",
                               u"\tx",   u"-----",       u"----- x", u"1 a",
                               u"2",     u"- b",         u"*c",      u"~",
                               u"word",  u"ab",          u"www.A.b", u"see http://X.y, now",
                               u"ftp:z", u"http:www.x ", u"x www.",  u"www.ftp:x </A>",
                               longLine};
  RandomText random(5);
  for (int i = 0; i < 20000; ++i) {
    Lines lines;
    std::vector<String> rows(1);
    for (std::size_t n = random.Number(20); n > 0; --n) {
      rows.push_back(String(tokens[random.Number(std::size(tokens) - 1)]));
      lines.Add(rows.back());
      rows.back() = SlowLinks(rows.back());
    }
    HtmlPageSettings settings;
    settings.NoFrame = true;
    settings.BreakLines = random.Number(1) == 1;
    settings.NoTitle = random.Number(1) == 1;
    const auto at = [&](std::size_t row) { return row < rows.size() ? rows[row] : String(); };
    const auto fits = [&](std::size_t row) {
      return !IsBlank(at(row)) && (settings.NoTitle || Trim(at(row)).size() <= 100);
    };
    std::size_t state = 1;
    if (fits(1))
      state = 2;
    else if (IsBlank(at(1)) && fits(2))
      state = 3;
    String expected;
    if (state > 1 && settings.NoTitle) expected = at(state - 1) + u"\r\n";
    if (state > 1 && !settings.NoTitle) expected = u"<B><U>" + at(state - 1) + u"</U></B>\r\n";
    expected += SlowBody(rows, state, settings.BreakLines, settings.NoTitle);
    TextSink page;
    PrintHtmlPage(lines, settings, page);
    ASSERT_EQ(page.Text, expected) << i;
  }
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
