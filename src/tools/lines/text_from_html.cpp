#include "tools/lines/text_from_html.h"

#include "tools/lines/html_entities.h"

namespace {

constexpr std::size_t kNone = StringView::npos;

}  // namespace

void TextFromHtml::Line(StringView line, LineSink& out) {
  forceBlank_ = paraSeen_ = breakSeen_ = endsInTag_ = false;
  TakeOutTags(line);
  if (lastTag_.starts_with(u"/SCRIPT"))
    inScript_ = false;
  else if (lastTag_.starts_with(u"SCRIPT"))
    inScript_ = true;
  if (inScript_) return;
  RebuildLine(DecodeEntities(text_));
  if (forceBlank_ || !IsBlank(text_)) out.Print(LTrim(text_));
}

// What stands in front of a tag holds no "<", so that it is never looked at again.
void TextFromHtml::TakeOutTags(StringView line) {
  text_.clear();
  leadingSpaces_ = 0;
  rest_ = line;
  if (line.find(u'<') != kNone) UCaseInto(line, upper_);
  const StringView upper = StringView(upper_).substr(0, line.size());
  // Behind everything once there is none left.
  std::size_t anchorEnd = 0;
  for (std::size_t open; (open = rest_.find(u'<')) != kNone;) {
    const std::size_t close = rest_.find(u'>', open + 1);
    if (close == kNone) break;
    const std::size_t begin = line.size() - rest_.size();
    const StringView tag = upper.substr(begin + open + 1, close - open - 1);
    std::size_t end = begin + close + 1;
    text_ += rest_.substr(0, open);
    if (tag.starts_with(u"BODY")) bodySeen_ = true;
    lastTag_ = tag;
    if (!bodySeen_) {
      text_.clear();
      rest_ = {};
      return;
    }
    if (tag.starts_with(u"A HREF")) {
      constexpr StringView kAnchorEnd = u"</A>";
      if (anchorEnd < end) {
        anchorEnd = upper.find(kAnchorEnd, end);
      }
      if (anchorEnd != kNone) end = anchorEnd + kAnchorEnd.size();
    }
    const StringView after = line.substr(end);
    endsInTag_ = after.empty();
    rest_ = after;
    if (tag == u"P")
      Paragraph(after);
    else if (tag == u"BR")
      Break(after);
    endsInTag_ = endsInTag_ && !text_.empty();
  }
  if (!rest_.empty()) endsInTag_ = false;
  text_ += rest_;
}

void TextFromHtml::Paragraph(StringView after) {
  if (text_.empty() && after.empty()) {
    forceBlank_ = true;
    return;
  }
  paraSeen_ = true;
  endsInTag_ = false;
  rest_ = LTrim(after);
  if (!text_.empty() && !rest_.empty()) text_ += kCrLf;
  text_ += kCrLf;
}

void TextFromHtml::Break(StringView after) {
  breakSeen_ = true;
  rest_ = LTrim(after);
  const bool oneIsBlank = TextIsBlank() != rest_.empty();
  endsInTag_ = rest_.empty() && oneIsBlank;
  if (!oneIsBlank) text_ += kCrLf;
}

bool TextFromHtml::TextIsBlank() {
  while (leadingSpaces_ < text_.size() && text_[leadingSpaces_] == u' ') ++leadingSpaces_;
  return leadingSpaces_ == text_.size();
}

void TextFromHtml::RebuildLine(bool decoded) {
  if ((paraSeen_ || breakSeen_) && Trim(text_) == kCrLf) {
    text_.clear();
    forceBlank_ = paraSeen_;
    return;
  }
  if (!endsInTag_ || decoded || text_.starts_with(kCr)) return;
  const std::size_t lineEnd = text_.find(kCrLf);
  if (lineEnd == String::npos) return;
  const String before = text_;
  const auto behind = [&before](std::size_t from) {
    return from < before.size() ? StringView(before).substr(from) : StringView();
  };
  if (paraSeen_) {
    text_.resize(lineEnd);
    text_ += kCrLf;
    if (const StringView rest = behind(lineEnd + 4); !rest.empty())
      text_.append(kCrLf).append(rest);
    if (text_ != before) return;
  }
  if (breakSeen_ && lineEnd + kCrLf.size() == text_.size()) text_.resize(lineEnd);
}
