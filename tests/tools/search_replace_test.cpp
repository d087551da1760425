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

// The rules step by step: the table of rows, counted from 1, and one instance at a time.
class SlowEngine {
 public:
  SlowEngine(std::vector<String> rows, std::size_t startPos) : StartPos(startPos), rows_(rows) {
    rows_.insert(rows_.begin(), String());
    lineCount_ = rows_.size() - 1;
    rows_.resize(rows_.size() + 20);
  }

  void Run(const SearchSettings& settings) {
    settings_ = settings;
    for (const String& alternative : SplitAlternatives(settings.SearchFor)) {
      if (alternative.find(kCr) == String::npos)
        ScanSingle(alternative);
      else
        ScanMulti(alternative);
    }
  }
  std::vector<String> Rows() const {
    return {rows_.begin() + 1, rows_.begin() + 1 + static_cast<std::ptrdiff_t>(lineCount_)};
  }

  std::size_t StartPos;
  int Count = 0;

 private:
  std::size_t Search(const String& line, const String& what, std::size_t from) const {
    return settings_.MatchCase ? InStr(line, what, from) : InStr(UCase(line), UCase(what), from);
  }
  bool Same(const String& a, const String& b) const {
    return settings_.MatchCase ? a == b : UCase(a) == UCase(b);
  }

  void ScanSingle(const String& search) {
    scanFirst_ = 1;
    scanLast_ = lineCount_;
    while (true) {
      removed_ = false;
      for (scanLine_ = scanFirst_; scanLine_ <= scanLast_ && !removed_; ++scanLine_) {
        const std::size_t row = scanLine_;
        const String value = FindReplace(rows_[row], search, false);
        rows_[row] = value;
        if (removed_) break;
      }
      if (!removed_) return;
      lineCount_ = scanLast_;
    }
  }

  String FindReplace(String line, const String& search, bool multi) {
    while (true) {
      const String before = line;
      line = ReplaceFirst(line, search, multi);
      if (removed_ || line == before) return line;
    }
  }

  String ReplaceFirst(const String& line, const String& search, bool multi) {
    if (StartPos == 0) StartPos = 1;
    std::size_t pos;
    while (true) {
      pos = Search(line, search, StartPos);
      if (!settings_.WholeWord || pos == 0) break;
      const std::size_t behind = pos - 1 + search.size();
      const bool after =
          behind >= line.size() || String(u" ,.;!?)>\":}]").find(line[behind]) != String::npos;
      const bool before = pos == 1 || String(u" ,.;!?(<\"`:{[").find(line[pos - 2]) != String::npos;
      if (after && before) break;
      StartPos = pos == 1 ? StartPos + 1 : pos + 1;
    }
    const String& replacement = settings_.ReplaceWith;
    if (pos == 0 || (replacement.empty() && multi)) {
      StartPos = 1;
      return line;
    }
    const String front = line.substr(0, pos - 1);
    const String behind = line.substr(pos - 1 + search.size());
    if (!replacement.empty()) {
      StartPos = pos + replacement.size();
      ++Count;
      return front + replacement + behind;
    }
    ++Count;
    if (UCase(search) == UCase(line)) {
      for (std::size_t i = scanLine_; i <= scanLast_; ++i) rows_[i] = rows_[i + 1];
      --scanLast_;
      scanFirst_ = scanLine_;
      removed_ = true;
      return rows_[scanLine_];
    }
    String beforeCharacter = front.empty() ? String() : front.substr(front.size() - 1);
    String afterCharacter = behind.substr(0, 1);
    if (search.size() == 1) {
      if (afterCharacter == u" " && beforeCharacter != u" ") afterCharacter.clear();
      if (beforeCharacter == u" ") beforeCharacter.clear();
    }
    if (beforeCharacter == u" ") return front.substr(0, front.size() - 1) + behind;
    if (afterCharacter == u" ") return front + behind.substr(1);
    return front + behind;
  }

  void ScanMulti(const String& alternative) {
    const std::vector<String> pieces = SplitAtReturns(alternative);
    const std::size_t pieceCount = pieces.size();
    std::size_t first = 1;
    while (true) {
      bool found = false;
      for (std::size_t i = first; i <= lineCount_ && !found; ++i) {
        std::size_t pos;
        String tail;
        if (!Matches(i, pieces, pos, tail)) continue;
        found = true;
        const std::size_t e = pieceCount - 1;
        bool keep = true;
        if (!settings_.ReplaceWith.empty()) {
          rows_[i] = FindReplace(rows_[i], pieces[0], true);
        } else {
          ++Count;
          if (settings_.WholeWord)
            keep = false;
          else if (pos > 1 && pieces[0] != rows_[i])
            rows_[i].resize(pos - 1);
          else if (!tail.empty())
            rows_[i].clear();
          else
            keep = false;
        }
        rows_[i] += tail;
        const std::size_t to = i + (keep ? 1 : 0);
        std::vector<String> rest;
        for (std::size_t row = i + e + 1; row <= lineCount_; ++row) rest.push_back(rows_[row]);
        for (std::size_t row = to; row < rows_.size(); ++row) rows_[row].clear();
        for (std::size_t n = 0; n < rest.size(); ++n) rows_[to + n] = rest[n];
        lineCount_ = to - 1 + rest.size();
        first = keep ? i + e : i + e - 1;
      }
      if (!found) return;
    }
  }

  bool Matches(std::size_t i, const std::vector<String>& pieces, std::size_t& pos,
               String& tail) const {
    const String& line = rows_[i];
    pos = settings_.WholeWord ? (Same(line, pieces[0]) ? 1 : 0) : Search(line, pieces[0], 1);
    if (pos == 0) return false;
    for (std::size_t k = 2; k <= pieces.size(); ++k) {
      const String& other = rows_[i + k - 1];
      const String& piece = pieces[k - 1];
      const bool last = k == pieces.size() && !settings_.WholeWord;
      if (last && !IsBlank(piece)) {
        const std::size_t q = Search(other, piece, 1);
        if (q == 0) return false;
        tail = other.substr(q - 1 + piece.size());
        continue;
      }
      if (last && pieces.size() == 2 && pos + pieces[0].size() - 1 != line.size()) return false;
      if (!Same(other, piece)) return false;
    }
    return true;
  }

  SearchSettings settings_;
  std::vector<String> rows_;
  std::size_t lineCount_ = 0;
  std::size_t scanFirst_ = 1, scanLine_ = 1, scanLast_ = 1;
  bool removed_ = false;
};

TEST(ReplaceInLines, AgreesWithTheRulesStepByStep) {
  constexpr StringView kText[] = {u"a", u"b", u"A", u" ", u"  ", u",", u"ab", u"\"", u"é"};
  constexpr StringView kSearch[] = {u"a", u"b", u"B", u" ", u"ab", u"a b", u"aab", u"é", u","};
  constexpr StringView kReplace[] = {u"a", u"b", u" ", u"xa"};
  RandomText random(3);
  std::size_t startPos = 1;
  for (int i = 0; i < 40000; ++i) {
    std::vector<String> rows;
    for (std::size_t n = random.Number(6); n > 0; --n) rows.push_back(random.Of(kText, 7));
    SearchSettings settings;
    for (std::size_t n = random.Number(2) + 1; n > 0; --n) {
      String alternative = random.Of(kSearch, 2);
      for (std::size_t returns = random.Number(5); returns > 2; --returns)
        alternative += String(kCrLf) + random.Of(kSearch, 1);
      // An empty first piece is nothing to search for, and nor are line ends alone.
      const bool onlyReturns = alternative.find_first_not_of(u" \r\n") == String::npos;
      if (onlyReturns || alternative.starts_with(kCr)) alternative = u"a" + alternative;
      settings.SearchFor += (settings.SearchFor.empty() ? u"" : u"<OR>") + alternative;
    }
    if (random.Number(2) > 0) settings.ReplaceWith = random.Of(kReplace, 2);
    settings.WholeWord = random.Number(1) == 1;
    settings.MatchCase = random.Number(1) == 1;

    SlowEngine slow(rows, startPos);
    slow.Run(settings);
    Lines lines;
    for (const String& row : rows) lines.Add(row);
    ReplaceState state{startPos, 0};
    ReplaceInLines(lines, settings, state, [](int, StringView) {});
    std::vector<String> fast;
    for (std::size_t row = 1; row <= lines.Count(); ++row) fast.push_back(lines[row]);
    String shown;
    for (const String& row : rows) shown += u"[" + row + u"]";
    ASSERT_EQ(fast, slow.Rows()) << i << ": " << ToUtf8(settings.SearchFor) << " -> "
                                 << ToUtf8(settings.ReplaceWith) << " in " << ToUtf8(shown)
                                 << " whole " << settings.WholeWord << " from " << startPos;
    ASSERT_EQ(state.ReplaceCount, slow.Count);
    ASSERT_EQ(state.StartPos, slow.StartPos);

    String text;
    for (const String& row : rows) text += row + String(kCrLf);
    TextSource in(text);
    TextSink out;
    ReplaceState again{startPos, 0};
    if (ReplaceLineByLine(in, out, settings, again)) {
      String expected;
      for (const String& row : slow.Rows()) expected += row + String(kCrLf);
      ASSERT_EQ(out.Text, expected) << i;
      ASSERT_EQ(again.ReplaceCount, slow.Count);
      ASSERT_EQ(again.StartPos, slow.StartPos);
    }
    startPos = slow.StartPos;
  }
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
