#include "support/print.h"

#include <cstdio>

void std::PrintTo(const u16string& text, ostream* out) {
  *out << '"';
  for (const char16_t c : text) {
    if (c >= 0x20 && c < 0x7F) {
      *out << static_cast<char>(c);
    } else {
      char code[8];
      std::snprintf(code, sizeof code, "\\%x ", static_cast<unsigned>(c));
      *out << code;
    }
  }
  *out << '"';
}
