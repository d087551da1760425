#include "text/ascii_runs.h"
#include "text/case_table.h"
#include "text/text.h"

namespace {

// Both directions by the same code: the table, and for the fast path the first ASCII letter that
// changes; the other case is always 32 away.
struct Upper {
  static constexpr auto kTable = MakeCaseTable<kToUpper>();
  static constexpr char16_t kFirst = u'a';
};
struct Lower {
  static constexpr auto kTable = MakeCaseTable<kToLower>();
  static constexpr char16_t kFirst = u'A';
};

template <typename Case>
char16_t MapUnit(char16_t c) {
  return static_cast<char16_t>(c + Case::kTable.Delta(c));
}

template <typename Case>
void MapAsciiRun(const char16_t* from, char16_t* to) {
  for (std::ptrdiff_t i = 0; i < kShortRun; ++i) {
    const auto place = static_cast<char16_t>(from[i] - Case::kFirst);
    to[i] = static_cast<char16_t>(from[i] ^ (place < 26 ? 0x20 : 0));
  }
}

// Maps what stands at `from` and returns how many units that was.
template <typename Case>
std::ptrdiff_t MapOne(const char16_t* from, const char16_t* end, char16_t* to) {
  if (!IsHighSurrogate(*from) || end - from < 2 || !IsLowSurrogate(from[1])) {
    *to = MapUnit<Case>(*from);
    return 1;
  }
  char32_t code = JoinPair(from[0], from[1]);
  if (code < kCasePages * kCasePageSize)
    code = (code & 0x10000) | ((code + Case::kTable.Delta(code)) & 0xFFFF);
  to[0] = HighOf(code);
  to[1] = LowOf(code);
  return 2;
}

template <typename Case>
void MapInto(StringView text, String& result) {
  result.resize(text.size());
  const char16_t* from = text.data();
  const char16_t* const end = from + text.size();
  char16_t* to = result.data();
  while (from != end) {
    const bool isRun = end - from >= kShortRun;
    if (isRun && AsciiPrefix(from) == kShortRun) {
      MapAsciiRun<Case>(from, to);
      from += kShortRun;
      to += kShortRun;
      continue;
    }
    if (isRun && !HasSurrogate<kShortRun>(from)) {
      for (std::ptrdiff_t i = 0; i < kShortRun; ++i) *to++ = MapUnit<Case>(*from++);
      continue;
    }
    const char16_t* const stop = isRun ? from + kShortRun : end;
    while (from < stop) {
      const std::ptrdiff_t units = MapOne<Case>(from, end, to);
      from += units;
      to += units;
    }
  }
}

template <typename Case>
String Map(StringView text) {
  String result;
  MapInto<Case>(text, result);
  return result;
}

}  // namespace

String UCase(StringView text) { return Map<Upper>(text); }
String LCase(StringView text) { return Map<Lower>(text); }
char16_t UCase(char16_t character) { return MapUnit<Upper>(character); }
char16_t LCase(char16_t character) { return MapUnit<Lower>(character); }
void UCaseInto(StringView text, String& result) { MapInto<Upper>(text, result); }
void LCaseInto(StringView text, String& result) { MapInto<Lower>(text, result); }

// The first character decides: a word that begins with a digit or a sign has no capital.
String ProperCase(StringView text) {
  String result = LCase(text);
  const char16_t* const end = result.data() + result.size();
  bool atStart = true;
  for (char16_t* p = result.data(); p != end; ++p) {
    if (atStart) MapOne<Upper>(p, end, p);
    atStart = *p == u' ';
  }
  return result;
}
