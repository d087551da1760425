#include "tools/lines/broken_line.h"

#include <algorithm>
#include <bit>

namespace {

constexpr std::size_t kWord = IndexSet::kWord;

// The lowest bit that is set: the span of a node of the tree.
std::size_t Span(std::size_t node) { return node & (~node + 1); }

std::uint64_t SpacesIn(StringView text) {
  std::uint64_t bits = 0;
  for (std::size_t i = 0; i < text.size(); ++i)
    bits |= static_cast<std::uint64_t>(text[i] == u' ') << i;
  return bits;
}

}  // namespace

void BrokenLine::Start(StringView line) {
  line_ = line;
  lastNonSpace_ = line.find_last_not_of(u' ');
  breakCount_ = 0;
  spaces_.Start(line.size());
  breaks_.Start(line.size());
  tree_.assign(line.size() / kWord + 2, 0);
  for (std::size_t begin = 0; begin < line.size(); begin += kWord)
    spaces_.SetWord(begin / kWord, SpacesIn(line.substr(begin, kWord)));
}

BrokenLine::Spaces BrokenLine::SpacesRound(std::size_t place) const {
  if (place == 0) return {{}, At(spaces_.AtOrAfter(0))};
  const std::size_t index = IndexAt(place);
  return {At(spaces_.AtOrBefore(index)), At(spaces_.AtOrAfter(index))};
}

void BrokenLine::BreakAt(Space space) {
  spaces_.Erase(space.Index);
  breaks_.Insert(space.Index);
  ++breakCount_;
  for (std::size_t node = space.Index / kWord + 1; node < tree_.size(); node += Span(node))
    ++tree_[node];
}

void BrokenLine::PrintTo(LineSink& out) const {
  std::size_t begin = 0;
  for (std::size_t i; (i = breaks_.AtOrAfter(begin)) != IndexSet::kNone; begin = i + 1)
    out.Print(line_.substr(begin, i - begin));
  out.Print(line_.substr(begin));
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
  // Each break in the word takes a place more.
  std::size_t index = word * kWord;
  for (std::uint64_t breaks = breaks_.Word(word);;) {
    const auto plain = static_cast<std::size_t>(std::countr_zero(breaks));
    if (left <= plain || plain >= kWord) return index + left;
    left -= plain + 1;
    index += plain;
    if (left == 0) return index;
    --left;
    ++index;
    breaks = plain + 1 < kWord ? breaks >> (plain + 1) : 0;
  }
}

BrokenLine::Space BrokenLine::At(std::size_t index) const {
  if (index == IndexSet::kNone) return {};
  std::size_t breaks = 0;
  for (std::size_t node = index / kWord; node > 0; node -= Span(node)) breaks += tree_[node];
  const std::uint64_t before = (std::uint64_t{1} << index % kWord) - 1;
  const int inWord = std::popcount(breaks_.Word(index / kWord) & before);
  return {index + 1 + breaks + static_cast<std::size_t>(inWord), index};
}
