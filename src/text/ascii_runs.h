#pragma once
// The inner loops over bytes and characters. Each works on runs of fixed length without a branch
// inside, which compilers turn into vector instructions.

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "text/text.h"

inline constexpr std::ptrdiff_t kRun = 32;

// Whether the kRun units at `p` are all ASCII. Unit is unsigned char or char16_t.
template <typename Unit>
inline bool IsAsciiRun(const Unit* p) {
  Unit any = 0;
  for (std::ptrdiff_t i = 0; i < kRun; ++i) any = static_cast<Unit>(any | p[i]);
  return any < 0x80;
}

// The first unit that is not ASCII, or `end`.
template <typename Unit>
inline const Unit* SkipAscii(const Unit* p, const Unit* end) {
  while (end - p >= kRun && IsAsciiRun(p)) p += kRun;
  while (p != end && *p < 0x80) ++p;
  return p;
}

// How many of the eight units at `p` come before the first that is not ASCII. For text that changes
// between ASCII and other characters, where longer runs are seldom.
inline constexpr std::ptrdiff_t kShortRun = 8;

template <typename Unit>
inline std::ptrdiff_t AsciiPrefix(const Unit* p) {
  constexpr std::size_t kWords = sizeof(Unit);
  constexpr int kUnitBits = 8 * sizeof(Unit);
  constexpr std::uint64_t kNotAscii =
      sizeof(Unit) == 1 ? 0x8080'8080'8080'8080 : 0xFF80'FF80'FF80'FF80;
  for (std::size_t word = 0; word < kWords; ++word) {
    std::uint64_t units;
    std::memcpy(&units, p + word * kShortRun / kWords, sizeof units);
    units &= kNotAscii;
    if (units == 0) continue;
    const int bits = std::endian::native == std::endian::little ? std::countr_zero(units)
                                                                : std::countl_zero(units);
    return static_cast<std::ptrdiff_t>(word) * kShortRun / std::ptrdiff_t{kWords} +
           bits / kUnitBits;
  }
  return kShortRun;
}

// One unit for one unit: bytes to characters, or characters below 256 to bytes.
template <std::ptrdiff_t kLength = kRun, typename From, typename To>
inline void CopyRun(const From* from, To* to) {
  for (std::ptrdiff_t i = 0; i < kLength; ++i) to[i] = static_cast<To>(from[i]);
}

// Which of the kRun units at `p` is the first that matches; there is one.
template <typename Matches>
inline std::ptrdiff_t FirstOfRun(const char16_t* p, Matches matches) {
  std::array<unsigned char, kRun> hits;
  for (std::ptrdiff_t i = 0; i < kRun; ++i) hits[static_cast<std::size_t>(i)] = matches(p + i);
  std::array<std::uint64_t, kRun / 8> words;
  std::memcpy(words.data(), hits.data(), sizeof words);
  std::ptrdiff_t word = 0;
  while (words[static_cast<std::size_t>(word)] == 0) ++word;
  const std::uint64_t found = words[static_cast<std::size_t>(word)];
  const int bits = std::endian::native == std::endian::little ? std::countr_zero(found)
                                                              : std::countl_zero(found);
  return word * 8 + bits / 8;
}

// The first unit at or after `p` that matches, or `end`.
template <typename Matches>
inline const char16_t* FindWhere(const char16_t* p, const char16_t* end, Matches matches) {
  for (; end - p >= kRun; p += kRun) {
    char16_t hits = 0;
    for (std::ptrdiff_t i = 0; i < kRun; ++i)
      hits = static_cast<char16_t>(hits | (matches(p + i) ? 1 : 0));
    if (hits != 0) return p + FirstOfRun(p, matches);
  }
  while (p != end && !matches(p)) ++p;
  return p;
}

// The first `unit` at or after `p`, or `end`.
inline const char16_t* FindUnit(const char16_t* p, const char16_t* end, char16_t unit) {
  return FindWhere(p, end, [unit](const char16_t* at) { return *at == unit; });
}

// The first `unit` at or after `p` that is followed by `next`, or `end`. The unit at `end` is read.
inline const char16_t* FindTwoUnits(const char16_t* p, const char16_t* end, char16_t unit,
                                    char16_t next) {
  // Without a branch between the two.
  return FindWhere(p, end, [unit, next](const char16_t* at) {
    return ((at[0] == unit) & (at[1] == next)) != 0;
  });
}

// Whether a half of a surrogate pair is among the kLength units at `p`.
template <std::ptrdiff_t kLength>
inline bool HasSurrogate(const char16_t* p) {
  char16_t hits = 0;
  for (std::ptrdiff_t i = 0; i < kLength; ++i)
    hits = static_cast<char16_t>(hits | ((p[i] & 0xF800) == 0xD800 ? 1 : 0));
  return hits != 0;
}

// The first half of a surrogate pair at or after `p`, paired or not, or `end`.
inline const char16_t* FindSurrogate(const char16_t* p, const char16_t* end) {
  while (end - p >= kRun && !HasSurrogate<kRun>(p)) p += kRun;
  while (end - p >= kShortRun && !HasSurrogate<kShortRun>(p)) p += kShortRun;
  while (p != end && (*p & 0xF800) != 0xD800) ++p;
  return p;
}

inline const unsigned char* AsBytes(const char* p) {
  return reinterpret_cast<const unsigned char*>(p);
}

constexpr char32_t JoinPair(char16_t high, char16_t low) {
  return 0x10000 + ((static_cast<char32_t>(high) - 0xD800) << 10) + (low - 0xDC00);
}
constexpr char16_t HighOf(char32_t code) {
  return static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
}
constexpr char16_t LowOf(char32_t code) {
  return static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
}
