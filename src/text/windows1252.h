#pragma once
// The single-byte code page: 256 bytes for 256 characters. The five codes without a meaning stand
// for the control characters of the same number.

#include <cstdint>
#include <optional>

#include "text/text.h"

char16_t FromWindows1252(std::uint8_t code);
// Nothing for a character outside the page.
std::optional<std::uint8_t> Windows1252Code(char16_t character);
