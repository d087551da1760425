#include "text/encoding.h"

#include <gtest/gtest.h>
#include <random>
#include <set>

#include "text/ascii_runs.h"
#include "text/format_check.h"
#include "text/utf8.h"
#include "text/windows1252.h"

namespace {

TEST(Utf8, KnowsEveryCharacterAndNothingElse) {
  for (char32_t code = 0; code < 0x110000; ++code) {
    if (code >= 0xD800 && code <= 0xDFFF) continue;
    String text;
    if (code < 0x10000)
      text = static_cast<char16_t>(code);
    else
      text = {HighOf(code), LowOf(code)};
    const std::string bytes = ToUtf8(text);
    ASSERT_EQ(bytes.size(), code < 0x80 ? 1u : code < 0x800 ? 2u : code < 0x10000 ? 3u : 4u);
    ASSERT_EQ(FromUtf8(bytes), text);
    ASSERT_EQ(WholeSequences(bytes), bytes.size());
    if (bytes.size() > 1) {
      ASSERT_EQ(WholeSequences("a" + bytes.substr(0, bytes.size() - 1)), 1u);
    }
  }
  EXPECT_EQ(ToUtf8(u"é€\U0001F600"), "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
}

TEST(Utf8, GivesEachStrayByteACharacterOfItsOwn) {
  for (const std::string_view bytes :
       {"\x80", "\xC3", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xED\xBF\xBF",
        "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFE\xFF", "\xE2\x82",
        "\xF0\x9F\x98"}) {
    const String text = FromUtf8(bytes);
    ASSERT_EQ(text.size(), bytes.size());
    for (std::size_t i = 0; i < text.size(); ++i)
      EXPECT_EQ(text[i], 0xDC00 + static_cast<unsigned char>(bytes[i]));
  }
}

TEST(Utf8, BringsBackAnyBytes) {
  std::mt19937 random(2);
  constexpr std::string_view kLikely = "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xED\xA0";
  for (int round = 0; round < 20000; ++round) {
    std::string bytes(random() % 100, 'a');
    for (char& byte : bytes) {
      if (random() % 2) byte = kLikely[random() % kLikely.size()];
      if (random() % 9 == 0) byte = static_cast<char>(random());
    }
    ASSERT_EQ(ToUtf8(FromUtf8(bytes)), bytes);
  }
}

TEST(Windows1252, MapsEachByteToOneCharacterAndBack) {
  std::set<char16_t> characters;
  for (int code = 0; code < 256; ++code) {
    const char16_t c = FromWindows1252(static_cast<std::uint8_t>(code));
    characters.insert(c);
    EXPECT_EQ(Windows1252Code(c), code);
  }
  EXPECT_EQ(characters.size(), 256u);
  EXPECT_EQ(FromWindows1252(147), u'\u201C');
  EXPECT_EQ(FromWindows1252(128), u'€');
  EXPECT_EQ(FromWindows1252(0x81), u'\u0081');
  for (const char16_t outside : {u'\u0080', u'\u0093', u'\u0100', u'Ж', u'\xDC80'})
    EXPECT_FALSE(Windows1252Code(outside));
}

TextFormat Make(Encoding encoding, bool mark) {
  TextFormat format;
  format.Encoding = encoding;
  format.Mark = mark;
  return format;
}
const TextFormat kPage = Make(Encoding::Windows1252, false);
const TextFormat kUtf8 = Make(Encoding::Utf8, false);
const TextFormat kMarked = Make(Encoding::Utf8, true);
const TextFormat kLe = Make(Encoding::Utf16Le, true);
const TextFormat kBe = Make(Encoding::Utf16Be, true);

TEST(FormatCheck, GoesUpOnlyAsFarAsTheTextDemands) {
  struct {
    String Text;
    TextFormat Wanted, Needed;
  } const kCases[] = {
      {u"plain", kPage, kPage},
      {u"caf\u00E9 \u201Cx\u201D \u0081", kPage, kPage},
      {u"caf\u00E9 \u0416", kPage, kUtf8},
      {u"\u0080", kPage, kUtf8},
      // In the page these would be read as another encoding.
      {u"Ã©", kPage, kUtf8},
      {u"Ã© and é", kPage, kPage},
      {u"Ã", kPage, kPage},
      {u"ÿþx", kPage, kUtf8},
      {u"ï»¿é", kPage, kUtf8},
      {u"plain é\U0001F600", kUtf8, kUtf8},
      {u"\uFEFFx", kUtf8, kMarked},
      {u"x\uFEFF", kUtf8, kUtf8},
      {u"\uFEFFx", kPage, kMarked},
      {u"x\xDC80", kUtf8, kMarked},
      {u"x\xDC80", kMarked, kMarked},
      {u"\xDCC3 \xDCA9", kMarked, kMarked},
      {u"\xDCC3\xDCA9", kMarked, kLe},
      {u"\xDCE2\xDCC3\xDCA9", kMarked, kLe},
      {u"\xDCC3\U0001F600\xDCA9", kMarked, kMarked},
      {u"\xD800", kMarked, kLe},
      {u"\xD800", kPage, kLe},
      {u"\xDC00\xD800", kBe, kBe},
      {u"x", Make(Encoding::Utf16Be, false), kBe},
  };
  for (const auto& [text, wanted, needed] : kCases) {
    FormatCheck whole(wanted), single(wanted);
    whole.Add(text);
    whole.Finish();
    EXPECT_EQ(whole.Format(), needed) << ToUtf8(text);
    for (std::size_t i = 0; i < text.size(); ++i) {
      const bool pair = IsHighSurrogate(text[i]) && i + 1 < text.size();
      single.Add(StringView(text).substr(i, pair ? 2 : 1));
      if (pair) ++i;
    }
    single.Finish();
    EXPECT_EQ(single.Format(), needed) << ToUtf8(text);
  }
}

}  // namespace
