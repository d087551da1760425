#include "platform/console/string_rich_text_box.h"

#include "platform/test_folder.h"
#include "support/rich_text_box_contract.h"
#include "text/runtime_error.h"

INSTANTIATE_TEST_SUITE_P(Console, RichTextBoxContract,
                         testing::Values([] { return std::make_unique<StringRichTextBox>(); }));

TEST(RichTextBoxFile, ATextThatIsLoadedAndSavedGivesTheSameBytes) {
  const struct {
    std::string Bytes;
    StringView Text;
  } cases[] = {
      {"", u""},
      {"one\ntwo\n", u"one\r\ntwo\r\n"},
      {"one\rtwo\r\nthree\nfour", u"one\r\ntwo\r\nthree\nfour"},
      {"\xEF\xBB\xBF\xC3\xA9", u"\u00E9"},
      {"\x93quoted\x94\n", u"\u201Cquoted\u201D\r\n"},
      {std::string("\xFF\xFE\0\xD8\r\0", 6), u"\xD800\r\n"},
  };
  const TestFolder folder;
  for (const auto& [bytes, text] : cases) {
    folder.Put("in", bytes);
    StringRichTextBox box;
    const TextFormat format = box.LoadFile(folder / "in");
    EXPECT_EQ(box.Text(), text);
    box.SaveFile(folder / "out", format);
    EXPECT_EQ(folder.Get("out"), bytes);
  }
}

TEST(RichTextBoxFile, AFileThatCantBeReadLeavesTheText) {
  const TestFolder folder;
  StringRichTextBox box;
  box.SetText(u"text");
  box.SetSelStart(2);
  EXPECT_EQ(CodeOf([&] { box.LoadFile(folder / "missing"); }), kFileNotFound);
  EXPECT_EQ(CodeOf([&] { box.SaveFile(folder / ".", {}); }), kPathFileAccess);
  EXPECT_EQ(box.Text(), u"text");
  EXPECT_EQ(box.SelStart(), 2u);
}
