#pragma once
// A set of indexes below a fixed size, quick to search in both directions: bits, and above each 64
// of them one bit that tells whether any is set, up to a single word.

#include <cstddef>
#include <cstdint>
#include <vector>

class IndexSet {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  // Empty.
  explicit IndexSet(std::size_t size);

  void Insert(std::size_t index);
  void Erase(std::size_t index);
  // The 64 indexes from 64 * word on, the lowest as the lowest bit.
  std::uint64_t Word(std::size_t word) const { return levels_.front()[word]; }
  // The largest member up to and with `index`, or kNone. Time is logarithmic in the size.
  std::size_t AtOrBefore(std::size_t index) const;
  // The smallest member from `index` on, or kNone.
  std::size_t AtOrAfter(std::size_t index) const;

 private:
  std::vector<std::vector<std::uint64_t>> levels_;
};
