#include "text/find_text.h"

#include <algorithm>

#include "text/letter_ranges.h"

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

// Upper and then lower: letters with two lower forms, such as sigma, come out the same. Each
// character stays in its place.
String Fold(StringView text) { return LCase(UCase(text)); }

// Finds one text in another in any case: folds the other piece by piece as the search gets there.
class Searcher {
 public:
  Searcher(StringView text, StringView what) : text_(text), what_(Fold(what)) {}

  std::optional<std::size_t> Next(std::size_t from) {
    while (from < text_.size()) {
      if (from < pieceStart_ || from + what_.size() > pieceStart_ + piece_.size()) FoldFrom(from);
      if (const std::size_t place = InStr(piece_, what_, from - pieceStart_ + 1))
        return pieceStart_ + place - 1;
      if (pieceStart_ + piece_.size() >= text_.size()) break;
      // A hit may begin in this piece and end in the next.
      from = pieceStart_ + piece_.size() - what_.size() + 1;
    }
    return std::nullopt;
  }

 private:
  static constexpr std::size_t kPiece = 1 << 16;

  void FoldFrom(std::size_t from) {
    const auto partsPair = [this](std::size_t place) {
      return place > 0 && place < text_.size() && IsHighSurrogate(text_[place - 1]) &&
             IsLowSurrogate(text_[place]);
    };
    pieceStart_ = partsPair(from) ? from - 1 : from;
    std::size_t end = std::min(text_.size(), pieceStart_ + kPiece + 2 * what_.size());
    if (partsPair(end)) ++end;
    piece_ = Fold(text_.substr(pieceStart_, end - pieceStart_));
  }

  StringView text_;
  String what_;
  std::size_t pieceStart_ = 0;
  String piece_;
};

}  // namespace

std::optional<std::size_t> FindText(StringView text, StringView what, std::size_t start,
                                    int options) {
  if (what.empty()) return std::nullopt;
  const auto wanted = [&](std::size_t hit) {
    return (options & kWholeWord) == 0 ||
           (!EndsWithWord(text.substr(0, hit)) && !StartsWithWord(text.substr(hit + what.size())));
  };
  if ((options & kMatchCase) != 0) {
    while (const std::size_t place = InStr(text, what, start + 1)) {
      if (wanted(place - 1)) return place - 1;
      start = place;
    }
    return std::nullopt;
  }
  Searcher searcher(text, what);
  while (const auto hit = searcher.Next(start)) {
    if (wanted(*hit)) return hit;
    start = *hit + 1;
  }
  return std::nullopt;
}
