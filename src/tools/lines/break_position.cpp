#include "tools/lines/break_position.h"

#include <algorithm>

namespace {

constexpr std::size_t kLeastPosition = 5;
constexpr std::size_t kLargestPosition = 1'000'000'000'000;
constexpr StringView kRefused = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ<>,*;/.{}[]!@#$%^&*():?|\\+-=~";

}  // namespace

std::size_t BreakPosition(StringView text) {
  std::size_t position = 0;
  for (const char16_t c : text) {
    if (c == u' ') continue;
    if (c < u'0' || c > u'9') break;
    position = std::min(position * 10 + static_cast<std::size_t>(c - u'0'), kLargestPosition);
  }
  return position;
}

StringView CheckBreakPosition(StringView text) {
  if (IsBlank(text)) {
    return u"You have not entered the character position at which to add the carriage return on "
           u"each line.";
  }
  if (BreakPosition(text) < kLeastPosition) {
    return u"The character position at which to add the carriage return on each line cannot be "
           u"less than 5.";
  }
  if (UCase(text).find_first_of(kRefused) != String::npos)
    return u"Error: Character other than number found.";
  return {};
}
