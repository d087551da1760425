#include "tools/lines/compared_text.h"

#include <algorithm>

bool EndsWord(char16_t behind) {
  return StringView(u" ,.;!?)>\":}]").find(behind) != StringView::npos;
}

bool BeginsWord(char16_t front) {
  return StringView(u" ,.;!?(<\"`:{[").find(front) != StringView::npos;
}

bool HasNoCase(StringView text) {
  return std::all_of(text.begin(), text.end(), [](char16_t c) {
    return !IsHighSurrogate(c) && !IsLowSurrogate(c) && UCase(c) == c && LCase(c) == c;
  });
}
