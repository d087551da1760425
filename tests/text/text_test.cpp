#include "text/text.h"

#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "text/windows1252.h"

namespace {

TEST(Trim, TakesSpacesAndNothingElse) {
  EXPECT_EQ(Trim(u"  a b  "), u"a b");
  EXPECT_EQ(LTrim(u"  a "), u"a ");
  EXPECT_EQ(RTrim(u" a  "), u" a");
  EXPECT_EQ(Trim(u" \ta\u00A0 "), u"\ta\u00A0");
  EXPECT_EQ(Trim(u"   "), u"");
  EXPECT_TRUE(IsBlank(u"   "));
  EXPECT_TRUE(IsBlank(u""));
  EXPECT_FALSE(IsBlank(u" \t "));
}

TEST(Case, MapsOneCharacterToOneInAnyScript) {
  struct {
    StringView Lower, Upper;
  } const kPairs[] = {
      {u"[az`{@]", u"[AZ`{@]"},
      {u"éßþ÷ÿ", u"ÉßÞ÷Ÿ"},
      {u"šœž", u"ŠŒŽ"},
      {u"µƒ", u"µƒ"},
      {u"привет", u"ПРИВЕТ"},
      {u"ἀθήνα", u"ἈΘΉΝΑ"},
      {u"ა", u"Ა"},
      {u"ǆ", u"Ǆ"},
      {u"\U00010428", u"\U00010400"},
      {u"\U0001E922", u"\U0001E900"},
      {u"\U0001F600漢", u"\U0001F600漢"},
  };
  for (const auto& [lower, upper] : kPairs) {
    EXPECT_EQ(UCase(lower), upper);
    EXPECT_EQ(LCase(upper), lower);
    EXPECT_EQ(UCase(upper), upper);
    EXPECT_EQ(LCase(lower), lower);
  }
  EXPECT_EQ(UCase(u"ς"), u"Σ");
  EXPECT_EQ(UCase(u"ᾳ"), u"ᾼ");
  EXPECT_EQ(LCase(u"İ"), u"i");
  const String lone = u"a\xD801z\xDC28";
  EXPECT_EQ(UCase(lone), u"A\xD801Z\xDC28");
}

TEST(Case, KeepsATextInItsCodePage) {
  for (int code = 0; code < 256; ++code) {
    const char16_t c = FromWindows1252(static_cast<std::uint8_t>(code));
    EXPECT_TRUE(Windows1252Code(UCase(c))) << code;
    EXPECT_TRUE(Windows1252Code(LCase(c))) << code;
  }
}

TEST(Case, IsTheSameInAStretchAsAlone) {
  for (int code = 0; code < 0x10000; ++code) {
    const auto c = static_cast<char16_t>(code);
    ASSERT_EQ(UCase(String(35, c)), String(35, UCase(c)));
    ASSERT_EQ(LCase(String(35, c)), String(35, LCase(c)));
  }
  String result;
  for (std::size_t at = 0; at < 70; ++at) {
    const String before(at, u'x'), after(70 - at, u'y');
    UCaseInto(before + u"\U00010428é" + after, result);
    ASSERT_EQ(result, String(at, u'X') + u"\U00010400É" + String(70 - at, u'Y'));
  }
}

TEST(Case, ProperCaseRaisesEachWord) {
  EXPECT_EQ(ProperCase(u"mY  oWN éTUDE"), u"My  Own Étude");
  EXPECT_EQ(ProperCase(u"1ST line\tx"), u"1st Line\tx");
  EXPECT_EQ(ProperCase(u"a \U00010428\U00010400"), u"A \U00010400\U00010428");
  EXPECT_EQ(ProperCase(u""), u"");
}

TEST(InStr, CountsFromOne) {
  EXPECT_EQ(InStr(u"banana", u"an"), 2u);
  EXPECT_EQ(InStr(u"banana", u"an", 2), 2u);
  EXPECT_EQ(InStr(u"banana", u"an", 3), 4u);
  EXPECT_EQ(InStr(u"banana", u"nana"), 3u);
  EXPECT_EQ(InStr(u"banana", u"an", 5), 0u);
  EXPECT_EQ(InStr(u"banana", u"", 6), 6u);
  EXPECT_EQ(InStr(u"banana", u"", 7), 0u);
  EXPECT_EQ(InStr(u"banana", u"x", 99), 0u);
  EXPECT_EQ(InStr(u"", u""), 0u);
  EXPECT_FALSE(Contains(u"ab", u"abc"));
}

TEST(InStr, AgreesWithTheLibrary) {
  std::mt19937 random(1);
  for (int round = 0; round < 3000; ++round) {
    String text(random() % 3000, u'a'), what(1 + random() % (round % 2 ? 4 : 60), u'a');
    for (std::size_t flaws = random() % 9; flaws > 0 && !text.empty(); --flaws)
      text[random() % text.size()] = u'b';
    if (random() % 2) what[random() % what.size()] = u'b';
    const std::size_t start = 1 + random() % (text.size() + 1);
    const std::size_t place = start > text.size() ? StringView::npos : text.find(what, start - 1);
    ASSERT_EQ(InStr(text, what, start), place == StringView::npos ? 0 : place + 1);
  }
}

// The plain way would take a hundred thousand million steps here.
TEST(InStr, IsLinear) {
  const String text(2'000'000, u'a');
  EXPECT_EQ(InStr(text, String(100'000, u'a') + u'b'), 0u);
  EXPECT_EQ(InStr(text, u'b' + String(100'000, u'a')), 0u);
  EXPECT_EQ(InStr(text, String(50'000, u'a') + u'b' + String(50'000, u'a')), 0u);
  EXPECT_EQ(InStr(text + u'b', String(100'000, u'a') + u'b'), 1'900'001u);
}

TEST(Val, ReadsTheNumberInFront) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  struct {
    StringView Text;
    double Value;
  } const kCases[] = {
      {u"", 0},
      {u"abc", 0},
      {u"12abc", 12},
      {u"  1 2 3", 123},
      {u"-5.5", -5.5},
      {u"+7", 7},
      {u"- 1 . 5 E 2x", -150},
      {u".5", .5},
      {u"5.", 5},
      {u".", 0},
      {u"-.e5", 0},
      {u"1.2.3", 1.2},
      {u"1E3", 1000},
      {u"1d-2", .01},
      {u"2E", 2},
      {u"2E+", 2},
      {u"2E+1", 20},
      {u"1,5", 1},
      {u"\t1", 0},
      {u"--1", 0},
      {u"1e999", kInfinity},
      {u"-1e99999999999999999999", -kInfinity},
      {u"1e-99999999999999999999", 0},
      {u"0e999", 0},
      {u"١", 0},
  };
  for (const auto& [text, value] : kCases) EXPECT_EQ(Val(text), value) << ToUtf8(text);
}

TEST(Str, IsWholeAndWithoutABlank) {
  EXPECT_EQ(Str(0), u"0");
  EXPECT_EQ(Str(-12), u"-12");
  EXPECT_EQ(Str(std::numeric_limits<long long>::min()), u"-9223372036854775808");
}

}  // namespace
