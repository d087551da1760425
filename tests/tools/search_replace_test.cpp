#include "tools/search_replace.h"

#include "support/tool_fixture.h"
#include "text/runtime_error.h"
#include "tools/catalogue.h"
#include "tools/lines/compared_text.h"
#include "tools/lines/replace_engine.h"
#include "tools/lines/search_syntax.h"
#include "tools/lines/text_lines.h"
#include "tools/random_text.h"

namespace {

// Ways to search.
constexpr int kCodes = 1;
constexpr int kWhole = 2;
constexpr int kCase = 4;

SearchSettings SettingsOf(StringView search, StringView replacement, int how) {
  return {String(search), String(replacement), (how & kCodes) != 0, (how & kWhole) != 0,
          (how & kCase) != 0};
}

class SearchReplaceTest : public ToolTest {
 protected:
  void Set(StringView search, StringView replacement, int how = 0) {
    App().Tools.SearchReplaceForm.Use(SettingsOf(search, replacement, how));
  }
  int Count() { return App().Tools.Replacing.ReplaceCount; }
};

TEST_F(SearchReplaceTest, ReplacesAlikeOnEditorAndFile) {
  struct Case {
    StringView Search, Replacement;
    int How;
    StringView Text, Result;
    int Count;
  };
  const Case cases[] = {
      {u"cat<OR>dog", u"x", 0, u"cat dog", u"x x\r\n", 2},
      {u"a<OR>b", u"bc", 0, u"a", u"bcc\r\n", 2},
      {u"cat", u"x", kWhole, u"(cat) cat. cats concat cat_ `cat cat` cat",
       u"(x) x. cats concat cat_ `x cat` x\r\n", 4},
      {u"very", u"", 0, u"a very good day\r\nvery good\r\ngood very",
       u"a good day\r\ngood\r\ngood\r\n", 3},
      {u"b", u"", 0, u"a b c\r\nxb c\r\na bx", u"a c\r\nx c\r\na x\r\n", 3},
      {u"END", u"", 0, u"x\r\nend\r\nEnd\r\ny", u"x\r\ny\r\n", 2},
      {u"end", u"", kCase, u"END\r\nend", u"END\r\n", 1},
      {u"a", u"aa", 0, u"aaa", u"aaaaaa\r\n", 3},
      {u"A", u"x", kCase, u"aA", u"ax\r\n", 1},
      {u"ab", u"", 0, u"xaabby", u"xy\r\n", 2},
      {u"abc\r\ndef", u"X", 0, u"abc tail\r\nxxdefyy", u"X tailyy\r\n", 1},
      {u"abc\r\ndef", u"", 0, u"zabc\r\ndef!", u"z!\r\n", 1},
      {u"abc\r\n", u"Z", 0, u"abc\r\n\r\nq", u"Z\r\nq\r\n", 1},
      {u"abc\r\n", u"Z", 0, u"abc\r\nq", u"abc\r\nq\r\n", 0},
      {u"abc\r\n", u"Z", 0, u"abc", u"Z\r\n", 1},
      {u"a\r\nb\r\nc", u"X", 0, u"a\r\nb\r\nc\r\na\r\nb\r\nc\r\nd", u"X\r\na\r\nb\r\nc\r\nd\r\n",
       1},
      {u"a\r\nb", u"", kWhole, u"a\r\nb\r\nxa\r\nb", u"xa\r\nb\r\n", 1},
      {u"a", u"x\r\ny", 0, u"bab", u"bx\r\nyb\r\n", 1},
      {u"\r\nb", u"x", 0, u"a\r\nb", u"a\r\nb\r\n", 0},
      {u"97 98", u"120 121 122", kCodes, u"abc ab", u"xyzc xyz\r\n", 2},
      {u"147<OR>148", u"34", kCodes, u"\u201Ca\u201D", u"\"a\"\r\n", 2},
      {u"97  98", u"0", kCodes, u"ab", StringView(u"\0\r\n", 3), 1},
      {u"97x", u"98.5 98.51 -0.4", kCodes, u"a", u"bc\r\n", 1},
      {u"x y", u"97", kCodes, u"x y", u"x y\r\n", 0},
      {u"13", u"97", kCodes, u"a\r\nb", u"a\r\nb\r\n", 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(ToUtf8(c.Search) + " -> " + ToUtf8(c.Replacement) + " in " + ToUtf8(c.Text));
    App().Tools.Replacing = {};
    Set(c.Search, c.Replacement, c.How);
    EXPECT_EQ(OnBoth(kSearchAndReplace, c.Text), c.Result);
    EXPECT_EQ(Count(), c.Count);
  }
  EXPECT_TRUE(Windows.Notices.empty());
}

TEST_F(SearchReplaceTest, BadSettings) {
  constexpr StringView kEmptyOr =
      u"Error: One of your <OR> statements results to nothing - meaning that there's nothing to "
      u"search for.  The search and replace has been cancelled and nothing has been changed.";
  constexpr StringView kReturns = u"You cannot search using only carriage returns.";
  constexpr StringView kCodesOut =
      u"One or more of your ASCII codes is invalid.  They can only be between 0-255.  Make sure "
      u"you separate each code by a space.";
  String manyOr, manyReturns;
  for (int i = 0; i < 50; ++i) manyOr += u"x<OR>";
  for (int i = 0; i < 501; ++i) manyReturns += u"a\r\n";
  struct Case {
    String Search;
    StringView Replacement;
    int How;
    StringView Result;  // of "a\r\nb" on the editor
    int Code;
    std::vector<StringView> Notices;  // empty texts for ones that are not told exactly
  };
  const Case cases[] = {
      {u"<OR>a", u"x", 0, u"a\r\nb\r\n", kEmptyAlternative, {kEmptyOr}},
      {u"", u"x", 0, u"a\r\nb\r\n", kEmptyAlternative, {kEmptyOr}},
      {u"\r\n <OR>a", u"x", 0, u"x\r\nb\r\n", kOnlyReturns, {kReturns}},
      {u"300<OR>97", u"98", kCodes, u"b\r\nb\r\n", kBadCode, {kCodesOut}},
      {u"-1", u"98", kCodes, u"a\r\nb\r\n", kBadCode, {kCodesOut}},
      {u"97<OR>98", u"256", kCodes, u"a\r\nb\r\n", kBadCode, {kCodesOut, kCodesOut}},
      {u"255.5", u"1", kCodes, u"a\r\nb\r\n", kBadCode, {kCodesOut}},
      {manyOr, u"y", 0, u"a\r\nb", kSubscriptOutOfRange, {u""}},
      {manyReturns, u"y", 0, u"a\r\nb", kSubscriptOutOfRange, {u""}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(ToUtf8(c.Search.substr(0, 20)) + " -> " + ToUtf8(c.Replacement));
    Windows.Notices.clear();
    Set(c.Search, c.Replacement, c.How);
    EXPECT_EQ(OnEditor(kSearchAndReplace, u"a\r\nb"), c.Result);
    ASSERT_EQ(Windows.Notices.size(), c.Notices.size());
    for (std::size_t i = 0; i < c.Notices.size(); ++i) {
      if (c.Notices[i].empty()) continue;
      EXPECT_EQ(Windows.Notices[i], c.Notices[i]);
    }
    try {
      OnFile(kSearchAndReplace, u"a\r\nb");
      ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Code, c.Code);
    }
  }
}

TEST_F(SearchReplaceTest, MostReplacements) {
  Set(u"a", u"b");
  const String most(32767, u'a');
  EXPECT_EQ(OnEditor(kSearchAndReplace, most), String(32767, u'b') + String(kCrLf));
  EXPECT_EQ(Count(), 32767);
  EXPECT_EQ(OnEditor(kSearchAndReplace, most + u"a"), most + u"a");
  EXPECT_EQ(Windows.Notices.size(), 1u);
  EXPECT_EQ(Count(), 0);
  try {
    OnFile(kSearchAndReplace, most + u"a");
    ADD_FAILURE() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Code, kOverflow);
  }
}

// A text without case is found as it stands, so nothing may turn into it in upper case.
TEST(WordSearch, NothingTurnsIntoATextWithoutCase) {
  for (int code = 0; code < 0x10000; ++code) {
    const auto c = static_cast<char16_t>(code);
    EXPECT_TRUE(UCase(c) == c || !HasNoCase(String(1, UCase(c)))) << code;
  }
  EXPECT_TRUE(HasNoCase(u"147 \u201C"));
  EXPECT_FALSE(HasNoCase(u"1a"));
  EXPECT_FALSE(HasNoCase(u"\U00010428"));
}

TEST_F(SearchReplaceTest, DialogChecksCodesAndText) {
  SearchReplaceForm& form = App().Tools.SearchReplaceForm;
  struct Case {
    StringView Search, Replacement;
    bool Codes;
    StringView Notice;  // how it begins
  };
  const Case cases[] = {
      {u"97<OR>98", u"", true, u""},
      {u"97<or>98", u"", true, u"Error: Character other"},
      {u"97 98", u"9<9", true, u"Error: Character other"},
      {u"97\r\n98", u"x", true, u"Error: Carriage Return"},
      {u"x\r\n", u"", true, u"Error: Character other"},
      {u"9_7", u"", true, u""},
      {u" ", u"", true, u"Error: You have not"},
      {u"", u"x", false, u"Error: You have not"},
      {u"x!", u"", false, u""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(ToUtf8(c.Search));
    Windows.Notices.clear();
    form.Show();
    form.Use(SettingsOf(c.Search, c.Replacement, c.Codes ? kCodes : 0));
    form.Command1.Click();
    EXPECT_EQ(Windows.Notices.empty(), c.Notice.empty());
    for (const String& notice : Windows.Notices) EXPECT_TRUE(notice.starts_with(c.Notice));
    EXPECT_EQ(form.Visible, !c.Notice.empty());
    form.Hide();
  }
  form.Show();
  form.Text1.Text = u"abc";
  form.Text1.Click();
  EXPECT_EQ(form.Text1.SelLength, 3);
  form.Text1.SelLength = 0;
  form.Text1.Click();
  EXPECT_EQ(form.Text1.SelLength, 0);
  form.CloseByFrame();
  EXPECT_TRUE(form.Cancelled);
  EXPECT_TRUE(form.FirstClickText1);
}

TEST_F(SearchReplaceTest, MenuAsksAndReports) {
  SearchReplaceForm& form = App().Tools.SearchReplaceForm;
  std::vector<String> reports;
  Windows.OnModal = [&](Form& shown) {
    if (&shown == &form) {
      form.Use(SettingsOf(u"a", u"b", 0));
      form.Command1.Click();
    } else {
      reports.push_back(App().Tools.ReplaceFoundNum.Label1.Caption);
      App().Tools.ReplaceFoundNum.Command1.Click();
    }
  };
  for (const StringView text : {u"x", u"a", u"aa"}) {
    App().RichTextBox1.SetText(text);
    App().Menu.ToolMenu(u"Search and Replace")->Click();
  }
  EXPECT_EQ(reports, (std::vector<String>{u"The search text was not found.",
                                          u"The search text was found and replaced 1 time.",
                                          u"The search text was found and replaced 2 times."}));
  Windows.OnModal = [&](Form&) {
    form.Text1.Text = u"other";
    form.Command2.Click();
  };
  App().RichTextBox1.SetText(u"a");
  App().Menu.ToolMenu(u"Search and Replace")->Click();
  EXPECT_EQ(App().RichTextBox1.Text(), u"a");
  EXPECT_EQ(form.Text1.Text.Get(), u"a");
  Windows.OnModal = [](Form&) { ADD_FAILURE() << "a blank text needs no settings"; };
  App().RichTextBox1.SetText(u"  ");
  App().Menu.ToolMenu(u"Search and Replace")->Click();
}

}  // namespace
