#include "text/utf8.h"

#include "text/ascii_runs.h"

namespace {

constexpr bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

// The second byte is where overlong forms, surrogates and what lies above U+10FFFF show.
struct SecondByte {
  unsigned char First;
  unsigned char Last;
};
constexpr SecondByte SecondByteAfter(unsigned char lead, LoneSurrogates lone) {
  switch (lead) {
    case 0xE0:
      return {0xA0, 0xBF};
    case 0xED:
      return {0x80, lone == LoneSurrogates::AsSequences ? static_cast<unsigned char>(0xBF)
                                                        : static_cast<unsigned char>(0x9F)};
    case 0xF0:
      return {0x90, 0xBF};
    case 0xF4:
      return {0x80, 0x8F};
    default:
      return {0x80, 0xBF};
  }
}

constexpr int LengthFor(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

constexpr char32_t Bits(unsigned char byte) { return byte & 0x3F; }

constexpr char ContinuationOf(char32_t code, int shift) {
  return static_cast<char>(0x80 | ((code >> shift) & 0x3F));
}

char16_t* PutSequence(const unsigned char* p, int length, char16_t* to) {
  switch (length) {
    case 1:
      *to++ = *p;
      break;
    case 2:
      *to++ = static_cast<char16_t>(((p[0] & 0x1F) << 6) | Bits(p[1]));
      break;
    case 3:
      *to++ = static_cast<char16_t>(((p[0] & 0x0F) << 12) | (Bits(p[1]) << 6) | Bits(p[2]));
      break;
    default: {
      const char32_t code = (static_cast<char32_t>(p[0] & 0x07) << 18) | (Bits(p[1]) << 12) |
                            (Bits(p[2]) << 6) | Bits(p[3]);
      *to++ = HighOf(code);
      *to++ = LowOf(code);
    }
  }
  return to;
}

// Decodes what stands at `p`, a stray byte as its stand-in, and moves behind it.
char16_t* TakeCharacter(const unsigned char*& p, const unsigned char* end, LoneSurrogates lone,
                        char16_t* to) {
  // The commonest without the detour: two bytes, and three behind leads that allow every second.
  if (*p >= 0xC2 && *p <= 0xDF && end - p >= 2 && IsContinuation(p[1])) {
    to = PutSequence(p, 2, to);
    p += 2;
    return to;
  }
  const bool isThree = (*p > 0xE0 && *p < 0xED) || (*p & 0xFE) == 0xEE;
  if (isThree && end - p >= 3 && IsContinuation(p[1]) && IsContinuation(p[2])) {
    to = PutSequence(p, 3, to);
    p += 3;
    return to;
  }
  const SequenceAt at = ReadSequence(p, end, lone);
  if (at.Kind == Sequence::Complete) {
    to = PutSequence(p, at.Length, to);
    p += at.Length;
  } else {
    *to++ = static_cast<char16_t>(0xDC00 + *p++);
  }
  return to;
}

// Encodes what stands at `p` and moves behind it.
char* PutCharacter(const char16_t*& p, const char16_t* end, LoneSurrogates lone, char* to) {
  const char16_t c = *p++;
  if (c < 0x800) {
    // One byte or two without a branch between them: where they alternate it could not be foretold.
    // (c >= 0x80 in arithmetic, which no compiler makes a branch of.)
    const unsigned isTwo = (c + 0x7F80u) >> 15;
    const unsigned mask = 0 - isTwo;
    to[0] = static_cast<char>((c & ~mask) | ((0xC0u | (c >> 6)) & mask));
    to[1] = ContinuationOf(c, 0);
    to += 1 + isTwo;
  } else if (IsHighSurrogate(c) && p != end && IsLowSurrogate(*p)) {
    const char32_t code = JoinPair(c, *p++);
    *to++ = static_cast<char>(0xF0 | (code >> 18));
    *to++ = ContinuationOf(code, 12);
    *to++ = ContinuationOf(code, 6);
    *to++ = ContinuationOf(code, 0);
  } else if (IsStrayByte(c) && lone == LoneSurrogates::AsStrayBytes) {
    *to++ = static_cast<char>(c - 0xDC00);
  } else {
    *to++ = static_cast<char>(0xE0 | (c >> 12));
    *to++ = ContinuationOf(c, 6);
    *to++ = ContinuationOf(c, 0);
  }
  return to;
}

}  // namespace

SequenceAt ReadSequence(const unsigned char* p, const unsigned char* end, LoneSurrogates lone) {
  const int length = LengthFor(*p);
  if (length == 1) return {Sequence::Complete, 1};
  if (length == 0) return {Sequence::Invalid, 0};
  if (end - p < 2) return {Sequence::Truncated, 0};
  const SecondByte second = SecondByteAfter(*p, lone);
  if (p[1] < second.First || p[1] > second.Last) return {Sequence::Invalid, 0};
  for (int i = 2; i < length; ++i) {
    if (end - p <= i) return {Sequence::Truncated, 0};
    if (!IsContinuation(p[i])) return {Sequence::Invalid, 0};
  }
  return {Sequence::Complete, length};
}

std::size_t WholeSequences(std::string_view bytes) {
  const unsigned char* const begin = AsBytes(bytes.data());
  const unsigned char* const end = begin + bytes.size();
  const unsigned char* lead = end;
  while (lead != begin && end - lead < 3) {
    --lead;
    if (IsContinuation(*lead)) continue;
    // The more generous reading: what is cut off for that one only is put together again as well.
    const bool cut =
        ReadSequence(lead, end, LoneSurrogates::AsSequences).Kind == Sequence::Truncated;
    return static_cast<std::size_t>((cut ? lead : end) - begin);
  }
  return bytes.size();
}

// Stretches of ASCII eight bytes at a time, the others one character at a time. What is copied too
// much is overwritten; there is room for it, as there is for one character a byte.
StringView DecodeUtf8(std::string_view bytes, LoneSurrogates lone, char16_t* const result) {
  char16_t* to = result;
  const unsigned char* p = AsBytes(bytes.data());
  const unsigned char* const end = p + bytes.size();
  while (p != end) {
    if (end - p >= kShortRun) {
      const std::ptrdiff_t ascii = AsciiPrefix(p);
      CopyRun<kShortRun>(p, to);
      p += ascii;
      to += ascii;
      if (ascii == kShortRun) continue;
    } else {
      while (p != end && *p < 0x80) *to++ = *p++;
    }
    while (p != end && *p >= 0x80) to = TakeCharacter(p, end, lone, to);
  }
  return {result, static_cast<std::size_t>(to - result)};
}

std::string_view EncodeUtf8(StringView text, LoneSurrogates lone, char* const result) {
  char* to = result;
  const char16_t* p = text.data();
  const char16_t* const end = p + text.size();
  while (p != end) {
    if (end - p >= kShortRun && AsciiPrefix(p) == kShortRun) {
      CopyRun<kShortRun>(p, to);
      p += kShortRun;
      to += kShortRun;
      continue;
    }
    const char16_t* const stop = end - p >= kShortRun ? p + kShortRun : end;
    while (p < stop) to = PutCharacter(p, end, lone, to);
  }
  return {result, static_cast<std::size_t>(to - result)};
}

String FromUtf8(std::string_view bytes) {
  String text(bytes.size(), u'\0');
  text.resize(DecodeUtf8(bytes, LoneSurrogates::AsStrayBytes, text.data()).size());
  return text;
}

std::string ToUtf8(StringView text) {
  std::string bytes(text.size() * 3, '\0');
  bytes.resize(EncodeUtf8(text, LoneSurrogates::AsStrayBytes, bytes.data()).size());
  return bytes;
}
