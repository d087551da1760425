#include "core/kept_place.h"

#include <algorithm>
#include <cmath>

namespace {

std::size_t LineCount(StringView text) {
  return 1 + static_cast<std::size_t>(std::count(text.begin(), text.end(), kCr));
}

// Where a place in the text is, counted from 0; the end of its line where that is shorter.
std::size_t PositionOf(StringView text, const TextPlace& place) {
  std::size_t start = 0;
  for (std::size_t line = 1; line < place.Line; ++line) {
    const std::size_t end = text.find(kCr, start);
    if (end == StringView::npos) break;
    start = end + kCrLf.size();
  }
  const std::size_t end = std::min(text.find(kCr, start), text.size());
  return std::min(start + place.Column - 1, end);
}

std::size_t Scaled(std::size_t number, double ratio) {
  return static_cast<std::size_t>(std::llround(static_cast<double>(number) * ratio));
}

}  // namespace

KeptPlace::KeptPlace(RichTextBox& editor)
    : editor_(editor),
      text_(editor.SharedText()),
      selStart_(editor.SelStart()),
      selLength_(editor.SelLength()),
      caret_(editor.Caret()),
      firstVisibleLine_(editor.FirstVisibleLine()) {}

void KeptPlace::Restore() const {
  const auto text = editor_.SharedText();
  if (*text == *text_) {
    if (editor_.SelStart() != selStart_ || editor_.SelLength() != selLength_) {
      editor_.SetSelStart(selStart_);
      editor_.SetSelLength(selLength_);
    }
    editor_.SetFirstVisibleLine(firstVisibleLine_);
    return;
  }
  if (selLength_ > 0) return;
  const std::size_t before = LineCount(*text_), now = LineCount(*text);
  TextPlace caret = caret_;
  std::size_t top = firstVisibleLine_;
  if (before != now) {
    // So that the last line stays the last.
    const double ratio =
        static_cast<double>(now - 1) / static_cast<double>(std::max<std::size_t>(before - 1, 1));
    caret = {.Line = 1 + Scaled(caret.Line - 1, ratio), .Column = 1};
    top = Scaled(top, ratio);
  }
  editor_.SetSelStart(PositionOf(*text, caret));
  editor_.SetFirstVisibleLine(top);
}
