#pragma once
// A set of indexes below a fixed size, quick to search in both directions: bits, and above each 64
// of them one bit that tells whether any is set, up to a single word.

#include <cstddef>
#include <cstdint>
#include <vector>

class IndexSet {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  static constexpr std::size_t kWord = 64;

  // Empties the set and gives it a size. The memory stays.
  void Start(std::size_t size);
  // Adds the members among the 64 indexes from kWord * word on, the lowest as the lowest bit. There
  // are none of them in the set yet.
  void SetWord(std::size_t word, std::uint64_t bits);
  void Insert(std::size_t index) { SetBit(index); }
  void Erase(std::size_t index);
  std::uint64_t Word(std::size_t word) const { return levels_.front()[word]; }
  // The largest member up to and with `index`, or kNone. Time is logarithmic in the size.
  std::size_t AtOrBefore(std::size_t index) const;
  // The smallest member from `index` on, or kNone.
  std::size_t AtOrAfter(std::size_t index) const;

 private:
  void SetBit(std::size_t index, std::size_t level = 0);

  std::vector<std::vector<std::uint64_t>> levels_;
};
