#include "editor/common_length.h"

#include <algorithm>

namespace {

bool PartsPair(StringView text, std::size_t place) {
  return place > 0 && place < text.size() && IsHighSurrogate(text[place - 1]) &&
         IsLowSurrogate(text[place]);
}

}  // namespace

CommonLengths FindCommonLengths(StringView a, StringView b) {
  const std::size_t shorter = std::min(a.size(), b.size());
  const auto front =
      std::mismatch(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(shorter), b.begin());
  CommonLengths common;
  common.Front = static_cast<std::size_t>(front.first - a.begin());
  if (PartsPair(a, common.Front) || PartsPair(b, common.Front)) --common.Front;

  const std::size_t most = shorter - common.Front;
  const auto end =
      std::mismatch(a.rbegin(), a.rbegin() + static_cast<std::ptrdiff_t>(most), b.rbegin());
  common.End = static_cast<std::size_t>(end.first - a.rbegin());
  if (common.End > 0 &&
      (PartsPair(a, a.size() - common.End) || PartsPair(b, b.size() - common.End)))
    --common.End;
  return common;
}
