#include "tools/lines/index_set.h"

#include <bit>

namespace {

constexpr std::size_t kBits = IndexSet::kWord;
constexpr std::uint64_t kOne = 1;
constexpr std::uint64_t kAll = ~std::uint64_t{0};

std::size_t Lowest(std::uint64_t word) { return static_cast<std::size_t>(std::countr_zero(word)); }
std::size_t Highest(std::uint64_t word) {
  return kBits - 1 - static_cast<std::size_t>(std::countl_zero(word));
}

}  // namespace

void IndexSet::Start(std::size_t size) {
  std::size_t level = 0;
  do {
    size = size / kBits + 1;
    if (level == levels_.size()) levels_.emplace_back();
    levels_[level++].assign(size, 0);
  } while (size > 1);
  levels_.resize(level);
}

void IndexSet::SetWord(std::size_t word, std::uint64_t bits) {
  levels_[0][word] = bits;
  if (bits != 0 && levels_.size() > 1) SetBit(word, 1);
}

void IndexSet::SetBit(std::size_t index, std::size_t level) {
  for (; level < levels_.size(); ++level) {
    std::uint64_t& word = levels_[level][index / kBits];
    const bool known = word != 0;
    word |= kOne << index % kBits;
    if (known) return;
    index /= kBits;
  }
}

void IndexSet::Erase(std::size_t index) {
  for (auto& level : levels_) {
    std::uint64_t& word = level[index / kBits];
    word &= ~(kOne << index % kBits);
    if (word != 0) return;
    index /= kBits;
  }
}

std::size_t IndexSet::AtOrBefore(std::size_t index) const {
  // Up to the first level with a member in the same word, then down to that member.
  for (std::size_t i = 0; i < levels_.size(); ++i) {
    const std::uint64_t word = levels_[i][index / kBits] & kAll >> (kBits - 1 - index % kBits);
    if (word != 0) {
      index = index / kBits * kBits + Highest(word);
      while (i-- > 0) index = index * kBits + Highest(levels_[i][index]);
      return index;
    }
    if (index < kBits) return kNone;
    index = index / kBits - 1;
  }
  return kNone;
}

std::size_t IndexSet::AtOrAfter(std::size_t index) const {
  for (std::size_t i = 0; i < levels_.size(); ++i) {
    if (index / kBits >= levels_[i].size()) return kNone;
    const std::uint64_t word = levels_[i][index / kBits] & kAll << index % kBits;
    if (word != 0) {
      index = index / kBits * kBits + Lowest(word);
      while (i-- > 0) index = index * kBits + Lowest(levels_[i][index]);
      return index;
    }
    index = index / kBits + 1;
  }
  return kNone;
}
