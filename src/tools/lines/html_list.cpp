#include "tools/lines/html_list.h"

namespace {

constexpr StringView kListMarks = u"1234567890-*~";
constexpr std::size_t kFewestLines = 5;
constexpr std::size_t kFarthestApart = 5;
constexpr std::size_t kMostBehindBlank = 4;

}  // namespace

HtmlList::HtmlList(const Lines& lines) {
  std::size_t count = 0;
  std::size_t first = 0;
  std::size_t last = 0;
  std::size_t behindBlank = 0;
  bool apart = false;
  for (std::size_t row = 1; row <= lines.Count(); ++row) {
    if (!HasMark(lines.At(row))) continue;
    if (++count == 1) {
      first = row;
    } else {
      apart = apart || row - last > kFarthestApart;
      if (IsBlank(lines.At(row - 1))) ++behindBlank;
    }
    last = row;
  }
  isList_ = count >= kFewestLines && !apart && behindBlank <= kMostBehindBlank;
  // Nothing stands in front of the text, which is as good as a blank line.
  if (isList_ && IsBlank(lines.At(first - 1))) firstLine_ = first;
}

bool HtmlList::HasMark(StringView line) {
  return !line.empty() && kListMarks.find(line.front()) != StringView::npos;
}
