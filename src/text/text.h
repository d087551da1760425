#pragma once
// The program's text and the helpers that every part uses on it.
//
// A character is one UTF-16 code unit. Positions given to and returned by InStr count from 1.

#include <cstddef>
#include <string>
#include <string_view>

using String = std::u16string;
using StringView = std::u16string_view;

inline constexpr char16_t kCr = u'\r';
inline constexpr char16_t kLf = u'\n';
inline constexpr StringView kCrLf = u"\r\n";

// The text without the spaces (U+0020 and no other character) at its start, its end, or both.
StringView LTrim(StringView text);
StringView RTrim(StringView text);
StringView Trim(StringView text);
// Whether nothing but spaces is in it. A tab makes a text non-blank.
bool IsBlank(StringView text);

// One character for one character, in any script and independent of the locale. A character of
// Windows-1252 whose counterpart lies outside that page stays as it is. A pair of surrogates maps
// to a pair; a lone surrogate stays.
String UCase(StringView text);
String LCase(StringView text);
char16_t UCase(char16_t character);
char16_t LCase(char16_t character);
// The same into a buffer whose memory is used again; `result` must not be what `text` looks at.
void UCaseInto(StringView text, String& result);
void LCaseInto(StringView text, String& result);
// First letter of each word upper, the rest lower. Words are parted by spaces.
String ProperCase(StringView text);

// Position of the first `what` at or after position `start`, 0 when there is none or start is past
// the end. An empty `what` is found at `start`. Time is linear in both lengths.
std::size_t InStr(StringView text, StringView what, std::size_t start = 1);
inline bool Contains(StringView text, StringView what) { return InStr(text, what) != 0; }

// The number at the start of a text: spaces are passed over wherever they stand, then sign, digits,
// fraction and exponent are read up to the first other character. 0 when there is no number.
double Val(StringView text);
// A whole number as text, without the blank for a sign.
String Str(long long number);

constexpr bool IsHighSurrogate(char16_t c) { return c >= 0xD800 && c <= 0xDBFF; }
constexpr bool IsLowSurrogate(char16_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

// For messages, logs and program arguments. Invalid bytes become U+DC80..U+DCFF, one each, and such
// a lone surrogate becomes its byte again, so any byte string survives the round trip.
String FromUtf8(std::string_view bytes);
std::string ToUtf8(StringView text);
