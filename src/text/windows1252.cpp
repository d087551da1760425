#include "text/windows1252.h"

#include <algorithm>
#include <iterator>

namespace {

// Codes 0x80 to 0x9F; all others are the number of their character.
constexpr char16_t kMiddle[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
constexpr std::uint8_t kMiddleFirst = 0x80;
constexpr std::uint8_t kMiddleEnd = 0xA0;

}  // namespace

char16_t FromWindows1252(std::uint8_t code) {
  return code >= kMiddleFirst && code < kMiddleEnd ? kMiddle[code - kMiddleFirst] : code;
}

std::optional<std::uint8_t> Windows1252Code(char16_t character) {
  if (character < kMiddleFirst || (character >= kMiddleEnd && character <= 0xFF))
    return static_cast<std::uint8_t>(character);
  const auto* const place = std::find(std::begin(kMiddle), std::end(kMiddle), character);
  if (place == std::end(kMiddle)) return std::nullopt;
  return static_cast<std::uint8_t>(kMiddleFirst + (place - kMiddle));
}
