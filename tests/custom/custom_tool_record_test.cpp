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
  tool.StepNames = {u"",
                    u"Email Cleanup - Standard",
                    u"Search and Replace",
                    u"None Selected",
                    u"None Selected",
                    u"None Selected"};
  tool.StepSearch[2] = {.SearchText = u"colour", .ReplaceText = u"color", .WholeWord = 1};
  // Settings of a step that has none are not written.
  tool.StepAdd[1].Position = u"76";
  EXPECT_EQ(RecordLines(tool, 2), LinesOf(kFixMail));

  tool.StepNames = {u"",
                    u"Run Program",
                    u"Convert TO HTML",
                    u"Add Trailing Carriage Returns",
                    u"None Selected",
                    u"Search and Replace"};
  tool.StepRun[1] = {u"/bin/x", u""};
  tool.StepHtml[2] = {u"Default", u"/f.txt", 1, 0, 1};
  tool.StepAdd[3] = {u"7 6", 1, 0};
  tool.StepSearch[5] = {.SearchText = u"a\r\n\r\nb", .ReplaceText = u"", .CodeMode = 1};
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
      {"lines between the texts",
       u"<<BEGINSEARCHTEXT>>a<<ENDSEARCHTEXT>>\n1\nx<<ENDREPLACETEXT>>\n"
       u"<<BEGINREPLACETEXT>>b<<ENDREPLACETEXT>>\n1",
       u"a", u"b", 1},
      {"no check value",
       u"<<BEGINSEARCHTEXT>>a<<ENDSEARCHTEXT>>\n<<BEGINREPLACETEXT>>b<<ENDREPLACETEXT>>\nyes", u"a",
       u"b", 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Name);
    CustomTool tool;
    ReadRecord(LinesOf(u"Search1-1:\n1\n" + String(c.Block) + u"\n0\n0\n"), 1, tool);
    EXPECT_EQ(tool.StepSearch[1].SearchText, c.Search);
    EXPECT_EQ(tool.StepSearch[1].ReplaceText, c.Replace);
    EXPECT_EQ(tool.StepSearch[1].CodeMode, c.CodeMode);
    EXPECT_EQ(tool.StepSearch[1].ShowSettings, 1);
  }
}

TEST(CustomToolRecord, ReadsTheWholeFileForItsKeys) {
  CustomTool tool;
  tool.StepSearch[4].ShowSettings = 1;
  tool.StepAdd[3].Position = u"of another tool";
  const FileLines lines = LinesOf(
      u"noise\nTool2:\nTool1:\na\nb\nc\nd\ne\n"  // the name of tool 2 is no key
      u"Add2-1:\n1\n5\n1\n"
      u"Tool1:\nfirst\n1\n2\n3\n4\n5\n"
      u"Add1x2y\n7\n9\n1\n"
      u"Add1\n1\n4\n1\n"  // no step at all
      u"Add1-x:\n1\n4\n1\n"
      u"Tool1:\nlast\n1\n2\n3\n4\n6\n");
  ReadRecord(lines, 2, tool);
  EXPECT_EQ(tool.Name, u"Tool1:");
  EXPECT_EQ(tool.StepNames[5], u"e");
  EXPECT_EQ(tool.StepAdd[1].Position, u"5");
  ReadRecord(lines, 1, tool);
  EXPECT_EQ(tool.Name, u"last");
  EXPECT_EQ(tool.StepNames[5], u"6");
  EXPECT_EQ(tool.StepAdd[2].Position, u"9");
  EXPECT_EQ(tool.StepAdd[2].ShowSettings, 0);
  EXPECT_EQ(tool.StepAdd[1].Position, u"");
  EXPECT_EQ(tool.StepAdd[1].ShowSettings, 1) << "stays from the tool read before";
  EXPECT_EQ(tool.StepAdd[3].Position, u"");
  EXPECT_EQ(tool.StepSearch[4].ShowSettings, 1);
}

TEST(CustomToolRecord, CutOffAnywhereIsTold) {
  const FileLines whole = LinesOf(kFixMail);
  for (std::size_t length = 1; length < whole.size(); ++length) {
    SCOPED_TRACE(length);
    const FileLines lines(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
    CustomTool tool;
    // Between the steps and the settings the file is whole.
    if (length == 7) {
      ReadRecord(lines, 2, tool);
      continue;
    }
    try {
      ReadRecord(lines, 2, tool);
      ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Code, kInputPastEnd);
    }
  }
  for (const StringView digit : {u"0", u"6", u"9"}) {
    CustomTool tool;
    try {
      ReadRecord(LinesOf(u"Add1-" + String(digit) + u":\n0\n5\n1\n"), 1, tool);
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
      for (std::size_t step = 1; step <= kMostSteps; ++step) {
        tool.StepNames[step] = kNames[number(5)];
        tool.StepRun[step] = {u"p" + text(false), text(false)};
        tool.StepHtml[step] = {u"h" + text(false), text(false), number(1), number(1), number(1)};
        tool.StepSearch[step] = {u"s" + text(true), text(true), number(1),
                                 number(1),         number(1),  number(1)};
        tool.StepAdd[step] = {u"5", number(1), number(1)};
      }
      const FileLines record = RecordLines(tool, n);
      lines.insert(lines.end(), record.begin(), record.end());
    }
    for (int n = 1; n <= 2; ++n) {
      CustomTool read;
      ReadRecord(lines, n, read);
      EXPECT_EQ(read.Name, Trim(tools[n - 1].Name));
      ASSERT_EQ(RecordLines(read, n), RecordLines(tools[n - 1], n));
    }
  }
}

}  // namespace
