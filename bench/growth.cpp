// How the time of each tool grows with its text: the inputs that invite a loop inside a loop, at
// one size and at twice that size. Prints both times, each the best of three, and their ratio,
// wanted at most 2.3. The first run of a size pays for memory that no run before had.
//
//   growth [PART OF A CASE'S NAME]

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <stdlib.h>

#include "platform/console/console_window_system.h"
#include "platform/system/memory.h"
#include "state/data_files.h"
#include "tools/catalogue.h"
#include "tools/file_run.h"

namespace {

constexpr std::size_t kMillion = 1'000'000;

String Repeat(StringView part, std::size_t times) {
  String text;
  text.reserve(part.size() * times);
  for (; times > 0; --times) text += part;
  return text;
}

// One line of this many characters.
String LineOf(StringView part, std::size_t size) { return Repeat(part, size / part.size() + 1); }

// 30000 rows.
String RowsOf(StringView part, std::size_t size) {
  constexpr std::size_t kRows = 30000;
  return Repeat(LineOf(part, size / kRows) + String(kCrLf), kRows);
}

struct Settings {
  StringView Search = {};
  StringView Replace = {};
  bool WholeWord = false;
  bool MatchCase = true;
  StringView Position = u"60";
};

struct Case {
  const char* Name;
  StringView Tool;
  std::size_t Size;  // of the smaller text, in characters
  String (*Make)(std::size_t size);
  Settings With = {};
};

const Case kCases[] = {
    {"wrap, one line of words", u"Add Trailing Carriage Returns", 25 * kMillion,
     [](std::size_t n) { return LineOf(u"word and another ", n); }},
    {"wrap, one line without spaces", u"Add Trailing Carriage Returns", 25 * kMillion,
     [](std::size_t n) { return LineOf(u"x", n); }},
    {"wrap, one line of spaces and a word", u"Add Trailing Carriage Returns", 10 * kMillion,
     [](std::size_t n) { return LineOf(u" ", n) + u"x"; }},
    {"wrap, words and then one long word", u"Add Trailing Carriage Returns", 10 * kMillion,
     [](std::size_t n) { return LineOf(u"word ", n / 2) + String(n / 2, u'x'); }},
    {"wrap, long words and far spaces", u"Add Trailing Carriage Returns", 10 * kMillion,
     [](std::size_t n) { return u"  " + LineOf(String(100, u'x') + u" ", n); }},
    {"wrap, 30000 rows", u"Add Trailing Carriage Returns", 45 * kMillion,
     [](std::size_t n) { return RowsOf(u"word and another ", n); }},
    {"join, one paragraph of many lines", u"Remove Trailing Carriage Returns", 25 * kMillion,
     [](std::size_t n) { return LineOf(u"a line of some words\r\n", n); }},
    {"sentences, one line of full stops", u"Capitalize 1st Letter of Sentences", 10 * kMillion,
     [](std::size_t n) { return LineOf(u".", n); }},
    {"sentences, marks of all kinds", u"Capitalize 1st Letter of Sentences", 10 * kMillion,
     [](std::size_t n) { return LineOf(u"?", n / 2) + LineOf(u"!.1 ", n / 2); }},
    {"sentences, pronouns", u"Capitalize 1st Letter of Sentences", 10 * kMillion,
     [](std::size_t n) { return LineOf(u"i i've ", n); }},
    {"signs, one line of them", u"Remove Leading \">\" Signs", 25 * kMillion,
     [](std::size_t n) { return LineOf(u"> ", n); }},
    {"leading spaces, one line", u"Remove ALL Leading Spaces", 25 * kMillion,
     [](std::size_t n) { return LineOf(u" ", n) + u"x"; }},
    {"indent, 30000 rows", u"Indent Paragraphs", 45 * kMillion,
     [](std::size_t n) { return RowsOf(u"some words ", n); }},
    {"replace, 32767 hits in one line",
     u"Search and Replace",
     10 * kMillion,
     [](std::size_t n) { return Repeat(String(n / 32767 - 2, u'x') + u"ab", 32767); },
     {u"ab", u"longer than that"}},
    {"replace across lines, a hit at every row",
     u"Search and Replace",
     45 * kMillion,
     [](std::size_t n) { return Repeat(u"start" + LineOf(u"x", n / 30000) + u"end\r\n", 30000); },
     {u"end\r\nstart", u"y"}},
    {"delete, whole rows",
     u"Search and Replace",
     15000,
     [](std::size_t n) { return Repeat(u"the whole row\r\n", n); },
     {u"the whole row", u""}},
    {"delete, one character between spaces",
     u"Search and Replace",
     10 * kMillion,
     [](std::size_t n) { return Repeat(String(n / 32767 - 3, u'x') + u" b ", 32767); },
     {u"b", u"", false, false}},
    {"whole word that never stands alone",
     u"Search and Replace",
     25 * kMillion,
     [](std::size_t n) { return LineOf(u"catx", n); },
     {u"cat", u"dog", true, false}},
    {"search that nearly hits everywhere",
     u"Search and Replace",
     25 * kMillion,
     [](std::size_t n) { return LineOf(u"a", n); },
     {u"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaab", u"x"}},
    {"from HTML, one line of tags", u"Convert FROM HTML", 10 * kMillion,
     [](std::size_t n) { return u"<BODY>\r\n" + LineOf(u"<b>some</b> text<i>more</i>", n); }},
    {"from HTML, tags that nothing closes", u"Convert FROM HTML", 10 * kMillion,
     [](std::size_t n) { return u"<BODY>\r\n" + LineOf(u"<", n); }},
    {"from HTML, anchors that nothing closes", u"Convert FROM HTML", 10 * kMillion,
     [](std::size_t n) { return u"<BODY>\r\n" + LineOf(u"<A HREF=x>y", n); }},
    {"from HTML, entities in entities", u"Convert FROM HTML", 10 * kMillion,
     [](std::size_t n) { return u"<BODY>\r\n&" + LineOf(u"amp;", n); }},
    {"to HTML, one line of links", u"Convert TO HTML", 10 * kMillion,
     [](std::size_t n) { return LineOf(u"www.a.b http://c ftp://d ", n); }},
    {"to HTML, one line of half links", u"Convert TO HTML", 10 * kMillion,
     [](std::size_t n) { return LineOf(u"www.http:ftp:", n); }},
    {"to HTML, 12000 lines", u"Convert TO HTML", 10 * kMillion,
     [](std::size_t n) { return Repeat(LineOf(u"1 ab ", n / 12000) + String(kCrLf), 12000); }},
    {"mail, quoted lines", u"Email Cleanup - Standard", 10 * kMillion,
     [](std::size_t n) {
       return Repeat(u"> \u201C" + LineOf(u"word ", n / 30000) + u"\r\n", 30000);
     }},
};

double SecondsOnce(const Case& c, std::size_t size) {
  ConsoleWindowSystem windows;
  Messages messages(windows);
  ToolState tools(windows, messages);
  tools.AddCarriageForm.Text1.Text = String(c.With.Position);
  tools.SearchReplaceForm.Text1.Text = String(c.With.Search);
  tools.SearchReplaceForm.Text2.Text = String(c.With.Replace);
  tools.SearchReplaceForm.Check2.Value = c.With.WholeWord ? 1 : 0;
  tools.SearchReplaceForm.Check3.Value = c.With.MatchCase ? 1 : 0;
  SharedFields fields;
  SetDataPaths(fields, u".", u".");
  WriteWorkFile(u"growth.txt", c.Make(size));
  FileRun run(u"growth.txt", u".");
  const auto editor = windows.CreateRichTextBox();
  ToolContext context{fields, *editor, messages, windows, tools, &run};
  const auto start = std::chrono::steady_clock::now();
  const Tool& tool = *FindTool(c.Tool);
  tool.Run(context, SettingsInWindow(tool, tools));
  const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
  return time.count();
}

double Seconds(const Case& c, std::size_t size) {
  return std::min({SecondsOnce(c, size), SecondsOnce(c, size), SecondsOnce(c, size)});
}

}  // namespace

int main(int argc, char** argv) {
  KeepFreedMemory();
  namespace fs = std::filesystem;
  std::string folder = (fs::temp_directory_path() / "wordflurn-growth-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) {
    std::perror(folder.c_str());
    return 1;
  }
  fs::current_path(folder);
  const std::string_view wanted = argc > 1 ? argv[1] : "";
  for (const Case& c : kCases) {
    if (std::string_view(c.Name).find(wanted) == std::string_view::npos) continue;
    try {
      const double one = Seconds(c, c.Size);
      const double two = Seconds(c, 2 * c.Size);
      std::printf("%-45s %7.3f s %7.3f s   ratio %.2f\n", c.Name, one, two, two / one);
    } catch (const std::exception& error) {
      std::printf("%-45s FAILED: %s\n", c.Name, error.what());
    }
    std::fflush(stdout);
  }
  fs::current_path("/");
  fs::remove_all(folder);
}
