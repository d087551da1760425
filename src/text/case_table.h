#pragma once
// The case mappings as two-level tables, made by the compiler: no work at start-up, one look-up a
// character.

#include <array>
#include <cstddef>
#include <cstdint>

#include "text/case_ranges.h"

inline constexpr std::size_t kCasePageSize = 256;
// No character above the first supplementary plane has a case.
inline constexpr std::size_t kCasePages = 0x20000 / kCasePageSize;

template <std::size_t Pages>
struct CaseTable {
  std::array<std::uint8_t, kCasePages> PageOf{};
  // Distances modulo 2^16: a character and its counterpart are in the same plane. Page 0 is that of
  // the characters without a counterpart.
  std::array<std::array<std::uint16_t, kCasePageSize>, Pages> Deltas{};

  // Of a character below 0x20000: what to add, modulo 2^16.
  constexpr std::uint16_t Delta(char32_t c) const {
    return Deltas[PageOf[c / kCasePageSize]][c % kCasePageSize];
  }
};

template <const auto& Ranges>
constexpr std::size_t CountCasePages() {
  std::array<bool, kCasePages> used{};
  for (const CaseRange& range : Ranges)
    for (char32_t page = range.First / kCasePageSize; page <= range.Last / kCasePageSize; ++page)
      used[page] = true;
  std::size_t count = 1;
  for (const bool isUsed : used) count += isUsed ? 1 : 0;
  return count;
}

template <const auto& Ranges>
constexpr auto MakeCaseTable() {
  CaseTable<CountCasePages<Ranges>()> table;
  std::uint8_t pages = 1;
  for (const CaseRange& range : Ranges) {
    for (char32_t c = range.First; c <= range.Last; c += range.Step) {
      std::uint8_t& page = table.PageOf[c / kCasePageSize];
      if (page == 0) page = pages++;
      table.Deltas[page][c % kCasePageSize] = static_cast<std::uint16_t>(range.Delta);
    }
  }
  return table;
}
