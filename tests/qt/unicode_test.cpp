// The tables of letters against those of Qt, over all code points. Qt maps no character to one
// where the mapping of a whole text makes several of it, so nothing is compared there.

#include <QString>
#include <gtest/gtest.h>

#include "text/letter_ranges.h"
#include "text/text.h"

namespace {

String TextOf(char32_t code) {
  if (!QChar::requiresSurrogates(code)) return String(1, static_cast<char16_t>(code));
  return {QChar::highSurrogate(code), QChar::lowSurrogate(code)};
}

// Their counterpart is outside Windows-1252, in which a text is to stay.
bool StaysAsItIs(char32_t code) { return code == 0xB5 || code == 0x192; }

TEST(Unicode, CaseAndLettersAreThoseOfQt) {
  auto range = std::begin(kLettersAndDigits);
  for (char32_t code = 0; code <= QChar::LastValidCodePoint; ++code) {
    while (range != std::end(kLettersAndDigits) && range->Last < code) ++range;
    // The tables have the letters of Unicode 14.
    if (QChar::isSurrogate(code) || QChar::unicodeVersion(code) > QChar::Unicode_14_0) continue;
    const bool letter = range != std::end(kLettersAndDigits) && range->First <= code;
    const bool digit = QChar::category(code) == QChar::Number_DecimalDigit;
    ASSERT_EQ(letter, QChar::isLetter(code) || digit) << std::hex << unsigned{code};
    const String text = TextOf(code);
    const auto whole = QString::fromUcs4(&code, 1);
    if (!StaysAsItIs(code) && whole.toUpper().size() == whole.size()) {
      ASSERT_EQ(UCase(text), TextOf(QChar::toUpper(code))) << std::hex << unsigned{code};
    }
    if (whole.toLower().size() == whole.size()) {
      ASSERT_EQ(LCase(text), TextOf(QChar::toLower(code))) << std::hex << unsigned{code};
    }
  }
}

}  // namespace
