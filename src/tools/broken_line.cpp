#include "tools/broken_line.h"

#include <bit>

namespace {

constexpr std::size_t kWord = 64;

// The lowest bit that is set: the span of a node of the tree.
std::size_t Span(std::size_t node) { return node & (~node + 1); }

}  // namespace

BrokenLine::BrokenLine(StringView line)
    : line_(line),
      lastNonSpace_(line.find_last_not_of(u' ')),
      spaces_(line.size()),
      breaks_(line.size()),
      tree_(line.size() / kWord + 2) {
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == u' ') spaces_.Insert(i);
  }
}

std::size_t BrokenLine::SpaceAtOrBefore(std::size_t place) const {
  return PlaceOf(spaces_.AtOrBefore(IndexAt(place)));
}

std::size_t BrokenLine::SpaceAtOrAfter(std::size_t place) const {
  return PlaceOf(spaces_.AtOrAfter(IndexAt(place)));
}

void BrokenLine::BreakAt(std::size_t space) {
  const std::size_t index = IndexAt(space);
  spaces_.Erase(index);
  breaks_.Insert(index);
  ++breakCount_;
  for (std::size_t node = index / kWord + 1; node < tree_.size(); node += Span(node)) ++tree_[node];
}

String BrokenLine::Text() const {
  String text;
  text.reserve(Length());
  std::size_t begin = 0;
  for (std::size_t i; (i = breaks_.AtOrAfter(begin)) != IndexSet::kNone; begin = i + 1)
    text.append(line_.substr(begin, i - begin)).append(kCrLf);
  return text.append(line_.substr(begin));
}

std::size_t BrokenLine::IndexAt(std::size_t place) const {
  std::size_t left = place - 1;
  // The last word that begins at or before the place.
  std::size_t word = 0;
  for (std::size_t step = std::bit_floor(tree_.size() - 1); step > 0; step /= 2) {
    const std::size_t next = word + step;
    if (next >= tree_.size()) continue;
    const std::size_t width = step * kWord + tree_[next];
    if (width > left) continue;
    word = next;
    left -= width;
  }
  std::size_t index = word * kWord;
  for (std::uint64_t breaks = breaks_.Word(word);; breaks >>= 1, ++index) {
    const std::size_t width = 1 + (breaks & 1);
    if (left < width) return index;
    left -= width;
  }
}

std::size_t BrokenLine::PlaceOf(std::size_t index) const {
  if (index == IndexSet::kNone) return 0;
  std::size_t breaks = 0;
  for (std::size_t node = index / kWord; node > 0; node -= Span(node)) breaks += tree_[node];
  const std::uint64_t inWord =
      breaks_.Word(index / kWord) & ((std::uint64_t{1} << index % kWord) - 1);
  return index + 1 + breaks + static_cast<std::size_t>(std::popcount(inWord));
}
