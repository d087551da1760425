#include "platform/find_text.h"

#include <algorithm>

#include "platform/letter_ranges.h"

namespace {

bool IsWordCharacter(char32_t c) {
  if (c == U'_') return true;
  const auto* range = std::upper_bound(
      std::begin(kLettersAndDigits), std::end(kLettersAndDigits), c,
      [](char32_t value, const CharacterRange& candidate) { return value < candidate.First; });
  return range != std::begin(kLettersAndDigits) && c <= std::prev(range)->Last;
}

char32_t Pair(char16_t high, char16_t low) {
  return 0x10000 + ((static_cast<char32_t>(high) - 0xD800) << 10) + (low - 0xDC00u);
}

bool EndsWithWord(StringView text) {
  if (text.empty()) return false;
  const char16_t last = text.back();
  if (IsLowSurrogate(last) && text.size() > 1 && IsHighSurrogate(text[text.size() - 2]))
    return IsWordCharacter(Pair(text[text.size() - 2], last));
  return IsWordCharacter(last);
}

bool StartsWithWord(StringView text) {
  if (text.empty()) return false;
  if (IsHighSurrogate(text[0]) && text.size() > 1 && IsLowSurrogate(text[1]))
    return IsWordCharacter(Pair(text[0], text[1]));
  return IsWordCharacter(text[0]);
}

// Upper and then lower: letters with two lower forms, such as sigma, come out the same.
String Fold(StringView text) { return LCase(UCase(text)); }

}  // namespace

std::optional<std::size_t> FindText(StringView text, StringView what, std::size_t start,
                                    int options) {
  if (what.empty()) return std::nullopt;
  if ((options & kMatchCase) == 0)
    return FindText(Fold(text), Fold(what), start, options | kMatchCase);
  while (const std::size_t place = InStr(text, what, start + 1)) {
    const std::size_t hit = place - 1;
    const bool whole =
        !EndsWithWord(text.substr(0, hit)) && !StartsWithWord(text.substr(hit + what.size()));
    if ((options & kWholeWord) == 0 || whole) return hit;
    start = hit + 1;
  }
  return std::nullopt;
}
