#include "tools/word_search.h"

bool EndsWord(char16_t behind) {
  return StringView(u" ,.;!?)>\":}]").find(behind) != StringView::npos;
}

bool BeginsWord(char16_t front) {
  return StringView(u" ,.;!?(<\"`:{[").find(front) != StringView::npos;
}
