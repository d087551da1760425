// Random texts and what the tools make of them, as it was recorded when each was held against its
// rules step by step. A difference is a change of behaviour: WORDFLURN_RECORD=1 records anew.

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "support/temp_folder.h"
#include "tools/lines/capital_letters.h"
#include "tools/lines/html_page.h"
#include "tools/lines/replace_engine.h"
#include "tools/lines/text_from_html.h"
#include "tools/lines/text_lines.h"
#include "tools/random_text.h"

namespace {

// A text on one line.
std::string Shown(StringView text) {
  std::string shown;
  for (const char c : ToUtf8(text)) {
    if (c == '\r')
      shown += "\\r";
    else if (c == '\n')
      shown += "\\n";
    else
      shown += c;
  }
  return shown;
}

// Compares the lines of all cases with the recorded ones.
void Compare(const std::string& name, const std::string& lines) {
  const std::string path = std::string(TEST_DATA) + "/recorded/" + name;
  if (std::getenv("WORDFLURN_RECORD") != nullptr) {
    std::ofstream(path, std::ios::binary) << lines;
    return;
  }
  std::istringstream wanted(BytesOf(FromUtf8(path))), got(lines);
  std::string wantedLine, gotLine;
  for (int line = 1; std::getline(got, gotLine); ++line) {
    ASSERT_TRUE(std::getline(wanted, wantedLine)) << path << " is too short";
    ASSERT_EQ(gotLine, wantedLine) << path << ":" << line;
  }
  EXPECT_FALSE(std::getline(wanted, wantedLine)) << path << " is too long";
}

TEST(Recorded, SearchAndReplace) {
  constexpr StringView kText[] = {u"a", u"b", u"A", u" ", u"  ", u",", u"ab", u"\"", u"é"};
  constexpr StringView kSearch[] = {u"a",    u"b",     u"B",      u" ",     u"ab",
                                    u"a b",  u"é",     u"aab",    u",",     u"\r\nb",
                                    u"\r\n", u"<OR>b", u"<OR>ab", u"a\r\na"};
  constexpr StringView kReplace[] = {u"a", u"b", u" ", u"xa"};
  RandomText random(3);
  ReplaceState state;
  std::string cases;
  for (int i = 0; i < 1500; ++i) {
    Lines lines;
    std::string before;
    for (std::size_t n = random.Number(6); n > 0; --n) {
      lines.Add(random.Of(kText, 7));
      before += "[" + ToUtf8(lines[lines.Count()]) + "]";
    }
    SearchSettings settings{.SearchFor = random.Of(kSearch, 3)};
    if (random.Number(2) > 0) settings.ReplaceWith = random.Of(kReplace, 2);
    settings.WholeWord = random.Number(1) == 1;
    settings.MatchCase = random.Number(1) == 1;
    std::string problem;
    ReplaceInLines(lines, settings, state,
                   [&problem](int code, StringView) { problem += "!" + std::to_string(code); });
    cases += before + " " + Shown(settings.SearchFor) + " -> " + Shown(settings.ReplaceWith) +
             (settings.WholeWord ? " w" : "") + (settings.MatchCase ? " c" : "") + ": ";
    for (std::size_t row = 1; row <= lines.Count(); ++row) cases += "[" + ToUtf8(lines[row]) + "]";
    cases += " " + std::to_string(state.ReplaceCount) + " at " + std::to_string(state.StartPos) +
             problem + "\n";
  }
  Compare("search_and_replace.txt", cases);
}

TEST(Recorded, TextFromHtml) {
  constexpr StringView kTokens[] = {
      u"<",    u">",    u"<P>",      u"<BR>",      u"<br>",       u"<BODY x>", u"</a>",
      u"a",    u" ",    u"<SCRIPT>", u"</script>", u"<A HREF=x>", u"<a href>", u"<B>",
      u"&lt;", u"amp;", u"lt;",      u"&AMP;",     u"&nbsp;",     u"&#169;",   u"   ",
      u"\t",   u"\n",   u"P>",       u"<P>",       u"<BR>",       u"a",        u" "};
  RandomText random(4);
  std::string cases;
  for (int i = 0; i < 700; ++i) {
    TextFromHtml page;
    TextSink out;
    for (int line = 0; line < 4; ++line) {
      const String text = line == 0 ? String(u"<BODY>") : random.Of(kTokens, 9);
      cases += Shown(text) + (line == 3 ? " => " : " | ");
      page.Line(text, out);
    }
    cases += Shown(out.Text) + "\n";
  }
  Compare("text_from_html.txt", cases);
}

TEST(Recorded, HtmlFromText) {
  const String longLine(101, u'x');
  const StringView tokens[] = {u"",      u" ",           u"   ",     u"   x",
                               u"\tx",   u"-----",       u"----- x", u"1 a",
                               u"2",     u"- b",         u"*c",      u"~",
                               u"word",  u"ab",          u"www.A.b", u"see http://X.y, now",
                               u"ftp:z", u"http:www.x ", u"x www.",  u"www.ftp:x </A>",
                               longLine};
  RandomText random(5);
  std::string cases;
  for (int i = 0; i < 400; ++i) {
    Lines lines;
    for (std::size_t n = random.Number(20); n > 0; --n) {
      lines.Add(String(tokens[random.Number(std::size(tokens) - 1)]));
      cases += Shown(lines[lines.Count()]) + "|";
    }
    HtmlPageSettings settings;
    settings.NoFrame = i % 3 > 0;
    settings.BreakLines = random.Number(1) == 1;
    settings.NoTitle = random.Number(1) == 1;
    TextSink page;
    PrintHtmlPage(lines, settings, page);
    cases += std::string(settings.BreakLines ? " b" : "") + (settings.NoTitle ? " n" : "") +
             " => " + Shown(page.Text) + "\n";
  }
  Compare("html_from_text.txt", cases);
}

TEST(Recorded, SentenceCapitals) {
  constexpr StringView kTokens[] = {u".",  u"?",    u"!", u" ",  u"\"", u"a", u"i",
                                    u"i ", u"i've", u"1", u"\n", u"é",  u"ſ", u"  "};
  RandomText random(2);
  std::string cases;
  for (int i = 0; i < 400; ++i) {
    SentenceCapitals capitals;
    for (int line = 0; line < 4; ++line) {
      String text = random.Of(kTokens, 14);
      capitals.Change(text);
      cases += Shown(text) + "|";
    }
    cases += "\n";
  }
  Compare("sentence_capitals.txt", cases);
}

}  // namespace
