#include "custom/streamed_run.h"

#include "custom/custom_tool_record.h"
#include "support/app_fixture.h"
#include "tools/catalogue.h"
#include "tools/random_text.h"

namespace {

class StreamedRunTest : public AppTest {
 protected:
  static constexpr std::uint64_t kLarge = 10'000;

  // A text in UTF-8 of more than kLarge bytes.
  std::string TextOf(bool unixText, bool lastLineEnds) {
    constexpr StringView kTokens[] = {u"",   u" ",  u"   x", u"\tb", u"> > c", u">d",  u"e. f",
                                      u"i ", u"G9", u"é Ж",  u"😀",   u"hJ? k", u" l!", u"mn o"};
    String text;
    while (text.size() < 2 * kLarge) text += random_.Of(kTokens, 8) + u'\n';
    std::string bytes;
    for (const char c : ToUtf8(text)) {
      if (c == '\n' && !unixText) bytes += '\r';
      bytes += c;
    }
    return bytes + (lastLineEnds ? "" : "the end");
  }

  // Whether both make the same of a file; counts those that were streamed.
  void Compare(const CustomTool& tool, const std::string& bytes) {
    const String file = Files.Put(u"in.txt", bytes);
    ToolContext context = App().Context();
    if (!RunStreamed(context, tool, file, Files / u"streamed.txt", kLarge)) return;
    ++streamed_;
    EXPECT_EQ(BytesOf(file), bytes);
    WriteDataFile(Data / u"FLURNCUS.DAT", RecordLines(tool, 1));
    const TextFormat format = App().RichTextBox1.LoadFile(file);
    EXPECT_TRUE(App().RunCustomTool(1).Whole());
    App().RichTextBox1.SaveFile(Files / u"edited.txt", format);
    EXPECT_TRUE(BytesOf(Files / u"streamed.txt") == BytesOf(Files / u"edited.txt"));
  }

  RandomText random_{7};
  int streamed_ = 0;
};

TEST_F(StreamedRunTest, MakesWhatTheEditorMakes) {
  CustomTool tool;
  tool.Name = u"chain";
  WriteDataFile(Data / u"FLURNCUS.DAT", RecordLines(tool, 1));
  Start();
  std::vector<const Tool*> tools;
  for (const Tool& each : Catalogue()) {
    if (each.Streams) tools.push_back(&each);
  }
  ASSERT_GT(tools.size(), 5u);
  const std::string texts[] = {TextOf(true, true), TextOf(true, false), TextOf(false, true),
                               TextOf(false, false)};
  for (std::size_t i = 0; i < tools.size(); ++i) {
    for (const std::string& text : texts) {
      SCOPED_TRACE(ToUtf8(tools[i]->StoredName));
      tool.Steps[1].Name = tools[i]->StoredName;
      tool.Steps[3].Name = kNoTool;
      Compare(tool, text);
      tool.Steps[3].Name = tools[random_.Number(tools.size() - 1)]->StoredName;
      SCOPED_TRACE(ToUtf8(tool.Steps[3].Name));
      Compare(tool, text);
    }
  }
  // The editor has to take those that would have to add a last line end, and little else.
  EXPECT_GT(streamed_, static_cast<int>(tools.size()) * 6);
}

TEST_F(StreamedRunTest, LeavesToTheEditorWhatItCannotDo) {
  CustomTool upper;
  upper.Steps[0].Name = u"All Upper Case";
  CustomTool blank = upper;
  blank.Steps[0].Name = u"Remove Double Spacing";
  blank.Steps[1].Name = u"All Upper Case";
  CustomTool table = upper;
  table.Steps[1].Name = u"Indent Paragraphs";
  const std::string lines(2 * kLarge, '\n');
  std::string large;
  while (large.size() < 2 * kLarge) large += "a line of text\n";
  const struct {
    const char* Name;
    const CustomTool& Tool;
    std::string Bytes;
  } cases[] = {
      {"small", upper, "a\n"},
      {"no last line end", upper, large + "b"},
      {"mixed line ends", upper, large + "b\rc\n"},
      {"encrypted", upper, large + "**This file has been encrypted with WordFlurn**\n"},
      {"blank on the way", blank, lines},
      {"the table of lines", table, large},
  };
  Start();
  for (const auto& [name, tool, bytes] : cases) {
    SCOPED_TRACE(name);
    const String file = Files.Put(u"in.txt", bytes);
    ToolContext context = App().Context();
    EXPECT_FALSE(RunStreamed(context, tool, file, file, kLarge));
    EXPECT_TRUE(BytesOf(file) == bytes);
  }
}

}  // namespace
