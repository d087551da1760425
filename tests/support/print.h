#pragma once
// Lets a failing test show texts.

#include <ostream>
#include <string>

namespace std {

// CR, LF and whatever a terminal does not show stand as codes.
void PrintTo(const u16string& text, ostream* out);

}  // namespace std
