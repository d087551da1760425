#pragma once
// The bytes of a text and its characters, in each encoding of a text file. The mark in front is not
// among them.

#include <string_view>

#include "text/text_format.h"

// The most bytes that one character takes.
inline constexpr std::size_t kMaxCharacterBytes = 3;

// Writes the characters to `to`, which has room for one a byte, and returns them. The bytes end
// with a whole character.
StringView Decode(std::string_view bytes, Encoding encoding, char16_t* to);

// Writes the bytes to `to`, which has room for kMaxCharacterBytes a character, and returns them.
// The encoding holds every character of the text (FormatCheck tells).
std::string_view Encode(StringView text, Encoding encoding, char* to);

// How many of the bytes come before a character that is cut off at the end.
std::size_t WholeCharacters(std::string_view bytes, Encoding encoding);

constexpr bool IsUtf16(Encoding encoding) {
  return encoding == Encoding::Utf16Le || encoding == Encoding::Utf16Be;
}

// The bytes of the mark that the format has in front, if any.
std::string_view MarkOf(const TextFormat& format);
