#pragma once
// UTF-8 with room for what is not text: a lone surrogate in memory has bytes, and stray bytes have
// a character, so that nothing is lost on the way there and back.

#include <cstddef>
#include <string_view>

#include "text/text.h"

// What a surrogate without its partner is in bytes.
enum class LoneSurrogates {
  // U+DC80..U+DCFF stand for bytes 0x80..0xFF that belong to no sequence; those above all.
  AsStrayBytes,
  // Each has a sequence of three bytes, as for any other character: exact for every text.
  AsSequences,
};

enum class Sequence { Complete, Invalid, Truncated };

// What a sequence of bytes begins with: Complete, and its length, for a valid sequence; Truncated
// when it is the beginning of one.
struct SequenceAt {
  Sequence Kind;
  int Length;
};
SequenceAt ReadSequence(const unsigned char* p, const unsigned char* end,
                        LoneSurrogates lone = LoneSurrogates::AsStrayBytes);

// How many of the bytes come before a sequence that is cut off at the end.
std::size_t WholeSequences(std::string_view bytes);

// Writes at most as many characters as there are bytes to `to`, and returns them.
StringView DecodeUtf8(std::string_view bytes, LoneSurrogates lone, char16_t* to);
// Writes at most three bytes a character to `to`, and returns them.
std::string_view EncodeUtf8(StringView text, LoneSurrogates lone, char* to);

// Whether a lone surrogate stands for a stray byte.
constexpr bool IsStrayByte(char16_t c) { return c >= 0xDC80 && c <= 0xDCFF; }
