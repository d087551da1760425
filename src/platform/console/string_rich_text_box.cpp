#include "platform/console/string_rich_text_box.h"

#include <algorithm>

#include "text/ascii_runs.h"

namespace {

// Whether each CR has its LF.
bool HasCrLfOnly(StringView text) {
  const char16_t* const end = text.data() + text.size();
  for (const char16_t* p = text.data(); (p = FindUnit(p, end, kCr)) != end; p += 2)
    if (end - p < 2 || p[1] != kLf) return false;
  return true;
}

String WithCrLf(StringView text) {
  if (HasCrLfOnly(text)) return String(text);
  String result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    result += text[i];
    if (text[i] != kCr) continue;
    result += kLf;
    if (i + 1 < text.size() && text[i + 1] == kLf) ++i;
  }
  return result;
}

void Run(const std::function<void()>& handler) {
  if (handler) handler();
}

}  // namespace

void StringRichTextBox::SetText(StringView text) {
  const bool moved = anchor_ != 0 || caret_ != 0;
  String next = WithCrLf(text);
  const bool changed = next != *text_;
  if (changed) text_ = std::make_shared<const String>(std::move(next));
  anchor_ = caret_ = 0;
  Report(changed, moved);
}

void StringRichTextBox::SetSelStart(std::size_t position) { Select(position, position); }

void StringRichTextBox::SetSelLength(std::size_t length) {
  const std::size_t start = SelStart();
  Select(start, start + std::min(length, text_->size() - start));
}

void StringRichTextBox::SetSelText(StringView text) {
  const std::size_t start = SelStart();
  const std::size_t length = SelLength();
  const String piece = WithCrLf(text);
  const std::size_t end = start + piece.size();
  const bool changed = StringView(*text_).substr(start, length) != piece;
  const bool moved = anchor_ != end || caret_ != end;
  if (changed) {
    String next = *text_;
    text_ = std::make_shared<const String>(std::move(next.replace(start, length, piece)));
  }
  anchor_ = caret_ = end;
  Report(changed, moved);
}

TextPlace StringRichTextBox::Caret() const {
  const StringView before = StringView(*text_).substr(0, caret_);
  const auto lines = static_cast<std::size_t>(std::count(before.begin(), before.end(), kCr));
  // Every CR has its LF.
  const std::size_t lineStart = lines == 0 ? 0 : before.rfind(kCr) + 2;
  return {.Line = lines + 1, .Column = caret_ - lineStart + 1};
}

std::size_t StringRichTextBox::CaretPlace(std::size_t position) const {
  const StringView text = *text_;
  if (position >= text.size()) return text.size();
  return position > 0 && text[position - 1] == kCr ? position - 1 : position;
}

void StringRichTextBox::Report(bool changed, bool moved) {
  if (changed) TextIsAnother();
  if (moved) Run(OnSelChange);
  if (changed) Run(OnChange);
}

void StringRichTextBox::Select(std::size_t anchor, std::size_t caret) {
  anchor = CaretPlace(anchor);
  caret = CaretPlace(caret);
  const bool moved = anchor != anchor_ || caret != caret_;
  anchor_ = anchor;
  caret_ = caret;
  if (moved) Run(OnSelChange);
}
