#include "custom/custom_tool_record.h"

#include <gtest/gtest.h>
#include <random>

#include "text/runtime_error.h"

namespace {

using FileLines = std::vector<String>;

FileLines LinesOf(StringView text) {
  FileLines lines;
  while (!text.empty()) {
    const std::size_t end = text.find(u'\n');
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(end == StringView::npos ? text.size() : end + 1);
  }
  return lines;
}

constexpr StringView kFixMail =
    u"Tool2:\nFix Mail\nEmail Cleanup - Standard\nSearch and Replace\nNone Selected\n"
    u"None Selected\nNone Selected\nSearch2-2:\n0\n"
    u"<<BEGINSEARCHTEXT>>colour<<ENDSEARCHTEXT>>\n"
    u"<<BEGINREPLACETEXT>>color<<ENDREPLACETEXT>>\n0\n1\n0\n";

TEST(CustomToolRecord, IsWrittenInTheOrderOfItsSteps) {
  CustomTool tool;
  tool.Name = u"  Fix Mail ";
  // Settings of a step that has none are not written.
  tool.Steps[0] = {u"Email Cleanup - Standard", AddSettings{}, true};
  tool.Steps[1] = {
      u"Search and Replace",
      SearchSettings{.SearchFor = u"colour", .ReplaceWith = u"color", .WholeWord = true}};
  EXPECT_EQ(RecordLines(tool, 2), LinesOf(kFixMail));

  tool.Steps = {{
      {u"Run Program", RunSettings{u"/bin/x", u""}},
      {u"Convert TO HTML", HtmlSettings{u"Default", u"/f.txt", true, false}, true},
      {u"Add Trailing Carriage Returns", AddSettings{u"7 6", true}},
      {},
      {u"Search and Replace", SearchSettings{.SearchFor = u"a\r\n\r\nb", .ByCodes = true}},
  }};
  EXPECT_EQ(RecordLines(tool, 1),
            LinesOf(u"Tool1:\nFix Mail\nRun Program\nConvert TO HTML\n"
                    u"Add Trailing Carriage Returns\nNone Selected\nSearch and Replace\n"
                    u"RunProgram1-1:\n/bin/x\n\nHTML1-2:\n1\nDefault\n/f.txt\n1\n0\n"
                    u"Add1-3:\n0\n7 6\n1\nSearch1-5:\n0\n<<BEGINSEARCHTEXT>>a\n\n"
                    u"b<<ENDSEARCHTEXT>>\n<<BEGINREPLACETEXT>><<ENDREPLACETEXT>>\n1\n0\n0\n"));
}

// Files that no one would write, and what stays of their search text in step 1 of tool 1.
TEST(CustomToolRecord, ReadsTextBetweenMarkers) {
  struct Case {
    const char* Name;
    StringView Block;
    StringView Search, Replace;
    int CodeMode;
  };
  const Case cases[] = {
      {"one line",
       u"<<BEGINSEARCHTEXT>>a<<ENDSEARCHTEXT>>\n<<BEGINREPLACETEXT>>b<<ENDREPLACETEXT>>\n1", u"a",
       u"b", 1},
      {"several lines",
       u"<<BEGINSEARCHTEXT>>a\nAdd1-1:\nb<<ENDSEARCHTEXT>>\n<<BEGINREPLACETEXT>>\n<<ENDREPLACETEXT>"
       u">\n0",
       u"a\r\nAdd1-1:\r\nb", u"\r\n", 0},
      {"rest behind the end marker is lost",
       u"<<BEGINSEARCHTEXT>>a<<ENDSEARCHTEXT>>xyz\n<<BEGINREPLACETEXT>>b<<ENDREPLACETEXT>>1\n1",
       u"a", u"b", 1},
      {"no begin marker", u"a<<ENDSEARCHTEXT>>\n<<BEGINREPLACETEXT>>b<<ENDREPLACETEXT>>\n1",
       u"\r\na", u"b", 1},
      {"replacement without its begin marker",
       u"<<BEGINSEARCHTEXT>>a<<ENDSEARCHTEXT>>\n1\nx<<ENDREPLACETEXT>>\n1", u"a", u"\r\n1\r\nx", 1},
      {"no check value",
       u"<<BEGINSEARCHTEXT>>a<<ENDSEARCHTEXT>>\n<<BEGINREPLACETEXT>>b<<ENDREPLACETEXT>>\nyes", u"a",
       u"b", 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Name);
    const CustomTool tool =
        ReadRecord(LinesOf(u"Tool1:\nn\nSearch and Replace\n\n\n\n\nSearch1-1:\n1\n" +
                           String(c.Block) + u"\n0\n0\n"),
                   1);
    const auto& settings = std::get<SearchSettings>(tool.Steps[0].Settings);
    EXPECT_EQ(settings.SearchFor, c.Search);
    EXPECT_EQ(settings.ReplaceWith, c.Replace);
    EXPECT_EQ(settings.ByCodes, c.CodeMode == 1);
    EXPECT_TRUE(tool.Steps[0].ShowSettings);
  }
}

TEST(CustomToolRecord, ReadsTheWholeFileForItsKeys) {
  const FileLines lines = LinesOf(
      u"noise\nTool2:\nTool1:\nAdd Trailing Carriage Returns\nb\nc\nd\ne\n"  // a name, no key
      u"Add2-1:\n1\n5\n1\n"
      u"Tool1:\nfirst\n1\n2\n3\n4\n5\n"
      u"Add1x2y\n7\n9\n1\n"
      u"Add1\n1\n4\n1\n"  // no step at all
      u"Add1-x:\n1\n4\n1\n"
      u"Add1-0:\n1\n4\n1\n"
      u"Tool1:\nlast\nAdd Trailing Carriage Returns\nAdd Trailing Carriage Returns\n3\n4\n6\n");
  const CustomTool second = ReadRecord(lines, 2);
  EXPECT_EQ(second.Name, u"Tool1:");
  EXPECT_EQ(second.Steps[4].Name, u"e");
  EXPECT_EQ(std::get<AddSettings>(second.Steps[0].Settings).Position, u"5");
  const CustomTool first = ReadRecord(lines, 1);
  EXPECT_EQ(first.Name, u"last");
  EXPECT_EQ(first.Steps[4].Name, u"6");
  EXPECT_EQ(std::get<AddSettings>(first.Steps[1].Settings).Position, u"9");
  EXPECT_FALSE(first.Steps[1].ShowSettings);
  EXPECT_FALSE(IsSet(first.Steps[0].Settings));
}

// A name that looks like a key makes its own tool readable, and the others.
TEST(CustomToolRecord, ToolNamedLikeAKey) {
  const FileLines lines = LinesOf(
      u"Tool1:\nHTML1.0 page\nAll Upper Case\n\n\n\n\nTool2:\nHTML1.0 page\nAll Lower Case\n"
      u"\n\n\n\n");
  EXPECT_EQ(ReadRecord(lines, 1).Steps[0].Name, u"All Upper Case");
  EXPECT_EQ(ReadRecord(lines, 2).Steps[0].Name, u"All Lower Case");
}

TEST(CustomToolRecord, CutOffAnywhereIsTold) {
  const FileLines whole = LinesOf(kFixMail);
  for (std::size_t length = 1; length < whole.size(); ++length) {
    SCOPED_TRACE(length);
    const FileLines lines(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
    // Between the steps and the settings the file is whole.
    if (length == 7) {
      ReadRecord(lines, 2);
      continue;
    }
    try {
      ReadRecord(lines, 2);
      ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Code, kInputPastEnd);
    }
  }
  for (const StringView digit : {u"6", u"9"}) {
    try {
      ReadRecord(LinesOf(u"Add1-" + String(digit) + u":\n0\n5\n1\n"), 1);
      ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Code, kSubscriptOutOfRange);
    }
  }
}

// What is written reads back, as long as no text holds what looks like the format.
TEST(CustomToolRecord, RandomToolsReadBack) {
  std::mt19937 random(7);
  const auto number = [&](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
  const auto text = [&](bool lineEnds) {
    constexpr StringView kParts[] = {u"a",      u" ",    u"<<", u"BEGIN", u"\u201C",
                                     u"\u0436", u"Tool", u"1-", u"&"};
    String result;
    for (int left = number(6); left > 0; --left) {
      result += kParts[number(8)];
      if (lineEnds && number(3) == 0) result += kCrLf;
    }
    return result;
  };
  constexpr StringView kNames[] = {u"Run Program",        u"Convert TO HTML",
                                   u"Search and Replace", u"Add Trailing Carriage Returns",
                                   u"All Upper Case",     u"None Selected"};
  for (int i = 0; i < 500; ++i) {
    CustomTool tools[2];
    FileLines lines;
    for (int n = 1; n <= 2; ++n) {
      CustomTool& tool = tools[n - 1];
      tool.Name = u"n" + String(Trim(text(false)));
      for (ToolStep& step : tool.Steps) {
        const auto flag = [&] { return number(1) == 1; };
        const ToolSettings settings[] = {
            RunSettings{u"p" + text(false), text(false)},
            HtmlSettings{u"h" + text(false), text(false), flag(), flag()},
            SearchSettings{u"s" + text(true), text(true), flag(), flag(), flag()},
            AddSettings{u"5", flag()},
            {},
            {}};
        const int kind = number(5);
        step = {String(kNames[kind]), settings[kind], kind > 0 && kind < 4 && flag()};
      }
      const FileLines record = RecordLines(tool, n);
      lines.insert(lines.end(), record.begin(), record.end());
    }
    for (int n = 1; n <= 2; ++n) {
      const CustomTool read = ReadRecord(lines, n);
      EXPECT_EQ(read.Name, Trim(tools[n - 1].Name));
      ASSERT_EQ(RecordLines(read, n), RecordLines(tools[n - 1], n));
    }
  }
}

}  // namespace
