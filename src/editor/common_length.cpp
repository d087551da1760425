#include "editor/common_length.h"

#include <algorithm>
#include <cstring>

namespace {

bool PartsPair(StringView text, std::size_t place) {
  return place > 0 && place < text.size() && IsHighSurrogate(text[place - 1]) &&
         IsLowSurrogate(text[place]);
}

// Texts are compared by blocks first: the library compares memory many times faster than it looks
// for the first difference.
constexpr std::size_t kBlock = 4096;

bool SameBlock(const char16_t* a, const char16_t* b) {
  return std::memcmp(a, b, kBlock * sizeof(char16_t)) == 0;
}

std::size_t CommonFront(StringView a, StringView b, std::size_t most) {
  std::size_t common = 0;
  while (most - common >= kBlock && SameBlock(a.data() + common, b.data() + common))
    common += kBlock;
  while (common < most && a[common] == b[common]) ++common;
  return common;
}

std::size_t CommonEnd(StringView a, StringView b, std::size_t most) {
  const char16_t* const endOfA = a.data() + a.size();
  const char16_t* const endOfB = b.data() + b.size();
  std::size_t common = 0;
  while (most - common >= kBlock && SameBlock(endOfA - common - kBlock, endOfB - common - kBlock))
    common += kBlock;
  while (common < most && endOfA[-1 - static_cast<std::ptrdiff_t>(common)] ==
                              endOfB[-1 - static_cast<std::ptrdiff_t>(common)])
    ++common;
  return common;
}

}  // namespace

CommonLengths FindCommonLengths(StringView a, StringView b) {
  const std::size_t shorter = std::min(a.size(), b.size());
  CommonLengths common;
  common.Front = CommonFront(a, b, shorter);
  if (PartsPair(a, common.Front) || PartsPair(b, common.Front)) --common.Front;
  common.End = CommonEnd(a, b, shorter - common.Front);
  if (common.End > 0 &&
      (PartsPair(a, a.size() - common.End) || PartsPair(b, b.size() - common.End)))
    --common.End;
  return common;
}
