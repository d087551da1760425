#include "tools/lines/search_syntax.h"

#include <algorithm>

#include "text/runtime_error.h"
#include "text/windows1252.h"

namespace {

constexpr std::size_t kMostAlternatives = 50;
constexpr std::size_t kMostReturns = 500;

constexpr bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// The number at the start of a code: sign, digits and fraction, rounded to the nearest whole number
// and a half to the even one. 0 without a digit.
int CodeOf(StringView token) {
  constexpr int kTooLarge = 100000;
  std::size_t i = 0;
  const bool negative = token.starts_with(u'-');
  if (negative || token.starts_with(u'+')) ++i;
  int whole = 0;
  const std::size_t digits = i;
  for (; i < token.size() && IsDigit(token[i]); ++i)
    whole = std::min(whole * 10 + (token[i] - u'0'), kTooLarge);
  if (i > digits && i + 1 < token.size() && token[i] == u'.' && IsDigit(token[i + 1])) {
    const StringView behind = token.substr(i + 2);
    const auto end = std::find_if_not(behind.begin(), behind.end(), IsDigit);
    const bool more = std::any_of(behind.begin(), end, [](char16_t c) { return c != u'0'; });
    const int tenths = token[i + 1] - u'0';
    if (tenths > 5 || (tenths == 5 && (more || whole % 2 == 1))) ++whole;
  }
  return negative ? -whole : whole;
}

}  // namespace

std::vector<String> SplitAlternatives(StringView searchFor) {
  std::vector<String> alternatives;
  while (true) {
    if (alternatives.size() == kMostAlternatives) {
      throw RuntimeError(kSubscriptOutOfRange,
                         "There are more than 50 alternatives to search for.  The search and "
                         "replace has been cancelled and nothing has been changed.");
    }
    const std::size_t place = searchFor.find(kOr);
    alternatives.emplace_back(searchFor.substr(0, place));
    if (place == StringView::npos) return alternatives;
    searchFor.remove_prefix(place + kOr.size());
  }
}

std::vector<String> SplitAtReturns(StringView alternative) {
  if (std::count(alternative.begin(), alternative.end(), kCr) > std::ptrdiff_t{kMostReturns}) {
    throw RuntimeError(kSubscriptOutOfRange,
                       "The text to search for has more than 500 line ends.  The search and "
                       "replace has been cancelled and nothing has been changed.");
  }
  std::vector<String> pieces;
  std::size_t begin = 0;
  for (std::size_t end;
       (end = alternative.find(kCr, pieces.empty() ? 0 : begin - 1)) != StringView::npos;) {
    // A return right behind another one leaves nothing between them.
    pieces.emplace_back(begin < end ? alternative.substr(begin, end - begin) : StringView());
    begin = end + 2;
  }
  pieces.emplace_back(begin < alternative.size() ? alternative.substr(begin) : StringView());
  return pieces;
}

std::optional<String> DecodeCodes(StringView list) {
  String text;
  while (true) {
    const StringView token = list.substr(0, list.find(u' '));
    const int code = CodeOf(token);
    if (code < 0 || code > 255) return std::nullopt;
    if (code != 0 || token == u"0") text += FromWindows1252(static_cast<std::uint8_t>(code));
    if (token.size() == list.size()) return text;
    list.remove_prefix(token.size() + 1);
  }
}
