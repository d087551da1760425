#include "text/encoding.h"

#include "text/ascii_runs.h"
#include "text/utf8.h"
#include "text/windows1252.h"

namespace {

// Where the low half of a two-byte character stands.
constexpr std::size_t LowByte(Encoding encoding) { return encoding == Encoding::Utf16Le ? 0 : 1; }

StringView DecodeUtf16(std::string_view bytes, Encoding encoding, char16_t* to) {
  const unsigned char* const p = AsBytes(bytes.data());
  const std::size_t low = LowByte(encoding);
  const std::size_t count = bytes.size() / 2;
  for (std::size_t i = 0; i < count; ++i)
    to[i] = static_cast<char16_t>(p[2 * i + low] | (p[2 * i + 1 - low] << 8));
  return {to, count};
}

std::string_view EncodeUtf16(StringView text, Encoding encoding, char* to) {
  const std::size_t low = LowByte(encoding);
  for (std::size_t i = 0; i < text.size(); ++i) {
    to[2 * i + low] = static_cast<char>(text[i] & 0xFF);
    to[2 * i + 1 - low] = static_cast<char>(text[i] >> 8);
  }
  return {to, 2 * text.size()};
}

// Both ways of the code page: one unit for one unit, ASCII as it is.
template <typename From, typename To, typename Map>
std::basic_string_view<To> MapUnits(const From* p, const From* end, To* to, Map map) {
  const To* const result = to;
  while (p != end) {
    if (end - p >= kRun && IsAsciiRun(p)) {
      CopyRun(p, to);
      p += kRun;
      to += kRun;
      continue;
    }
    const From* const stop = end - p >= kRun ? p + kRun : end;
    while (p != stop) *to++ = static_cast<To>(map(*p++));
  }
  return {result, static_cast<std::size_t>(to - result)};
}

}  // namespace

StringView Decode(std::string_view bytes, Encoding encoding, char16_t* to) {
  const unsigned char* const begin = AsBytes(bytes.data());
  switch (encoding) {
    case Encoding::Utf8:
      return DecodeUtf8(bytes, LoneSurrogates::AsStrayBytes, to);
    case Encoding::Windows1252:
      return MapUnits(begin, begin + bytes.size(), to, FromWindows1252);
    default:
      return DecodeUtf16(bytes, encoding, to);
  }
}

std::string_view Encode(StringView text, Encoding encoding, char* to) {
  switch (encoding) {
    case Encoding::Utf8:
      return EncodeUtf8(text, LoneSurrogates::AsStrayBytes, to);
    case Encoding::Windows1252:
      return MapUnits(text.data(), text.data() + text.size(), to,
                      [](char16_t c) { return Windows1252Code(c).value(); });
    default:
      return EncodeUtf16(text, encoding, to);
  }
}

std::size_t WholeCharacters(std::string_view bytes, Encoding encoding) {
  switch (encoding) {
    case Encoding::Utf8:
      return WholeSequences(bytes);
    case Encoding::Windows1252:
      return bytes.size();
    default:
      return bytes.size() & ~std::size_t{1};
  }
}

std::string_view MarkOf(const TextFormat& format) {
  if (!format.Mark) return {};
  switch (format.Encoding) {
    case Encoding::Utf8:
      return "\xEF\xBB\xBF";
    case Encoding::Utf16Le:
      return "\xFF\xFE";
    case Encoding::Utf16Be:
      return "\xFE\xFF";
    default:
      return {};
  }
}
