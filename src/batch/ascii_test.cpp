#include "batch/ascii_test.h"

#include <algorithm>

#include "text/utf8.h"

namespace {

constexpr int kLinesTested = 4;
constexpr char16_t kBackspace = 8;
// 133, 145 to 148, 150 and 151 of the code page.
constexpr StringView kAccepted = u"\u2026\u2018\u2019\u201C\u201D\u2013\u2014";

bool IsRefused(char16_t c) {
  return c == kBackspace || (c > 127 && kAccepted.find(c) == StringView::npos);
}

// A control character, or a byte that is no part of the text.
bool IsNoText(char16_t c) {
  return IsStrayByte(c) || (c < u' ' && c != u'\t' && c != kCr && c != kLf) ||
         (c >= 0x7F && c < 0xA0);
}

template <class Test>
bool NoneOfTheLines(TextReader& reader, long long most, Test refuses) {
  bool none = true;
  for (long long line = 0; none && line != most && !reader.AtEnd(); ++line) {
    const StringView text = reader.ReadLine();
    none = std::none_of(text.begin(), text.end(), refuses);
  }
  reader.Rewind();
  return none;
}

}  // namespace

bool LooksLikeAscii(TextReader& reader) { return NoneOfTheLines(reader, kLinesTested, IsRefused); }

bool IsUnicodeText(TextReader& reader) {
  const TextFormat& format = reader.Format();
  if (format.Encoding == Encoding::Windows1252) return false;
  return NoneOfTheLines(reader, -1, IsNoText);
}
