#include "text/format_check.h"

#include "text/ascii_runs.h"
#include "text/encoding.h"
#include "text/utf8.h"
#include "text/windows1252.h"

namespace {

Sequence BeginningOf(const std::string& bytes) {
  return ReadSequence(AsBytes(bytes.data()), AsBytes(bytes.data()) + bytes.size()).Kind;
}

bool BeginsWithMark(std::string_view bytes) {
  return bytes.starts_with("\xEF\xBB\xBF") || bytes.starts_with("\xFF\xFE") ||
         bytes.starts_with("\xFE\xFF");
}

constexpr char16_t kMark = 0xFEFF;

}  // namespace

FormatCheck::FormatCheck(const TextFormat& wanted) : format_(wanted) {
  if (IsUtf16(wanted.Encoding)) {
    rung_ = Rung::Utf16;
    format_.Mark = true;
  } else if (wanted.Encoding == Encoding::Windows1252) {
    rung_ = Rung::Page;
    format_.Mark = false;
  } else {
    rung_ = wanted.Mark ? Rung::MarkedUtf8 : Rung::Utf8;
  }
}

bool FormatCheck::Add(StringView text) {
  if (text.empty()) return true;
  const Rung before = rung_;
  while (!Holds(text)) GoTo(static_cast<Rung>(static_cast<int>(rung_) + 1));
  atStart_ = false;
  return rung_ == before;
}

bool FormatCheck::Finish() {
  if (rung_ != Rung::Page) return true;
  const bool readsAsOther =
      BeginsWithMark(firstBytes_) || (!isAscii_ && readsAsUtf8_ && pending_.empty());
  if (readsAsOther) GoTo(Rung::Utf8);
  return !readsAsOther;
}

bool FormatCheck::Holds(StringView text) {
  switch (rung_) {
    case Rung::Page:
      return PageHolds(text);
    case Rung::Utf8:
      return Utf8Holds(text);
    case Rung::MarkedUtf8:
      return MarkedUtf8Holds(text);
    default:
      return true;
  }
}

bool FormatCheck::PageHolds(StringView text) {
  const char16_t* p = text.data();
  const char16_t* const end = p + text.size();
  while (true) {
    const char16_t* const next = SkipAscii(p, end);
    if (next != p && !pending_.empty()) readsAsUtf8_ = false;
    if (next == end) break;
    p = next;
    const auto code = Windows1252Code(*p++);
    if (!code) return false;
    isAscii_ = false;
    if (!readsAsUtf8_) continue;
    pending_ += static_cast<char>(*code);
    const Sequence kind = BeginningOf(pending_);
    if (kind == Sequence::Invalid) readsAsUtf8_ = false;
    if (kind == Sequence::Complete) pending_.clear();
  }
  for (const char16_t c : text.substr(0, 3 - std::min<std::size_t>(firstBytes_.size(), 3)))
    firstBytes_ += static_cast<char>(Windows1252Code(c).value());
  return true;
}

bool FormatCheck::Utf8Holds(StringView text) const {
  if (atStart_ && text.front() == kMark) return false;
  const char16_t* const end = text.data() + text.size();
  for (const char16_t* p = text.data(); (p = FindSurrogate(p, end)) != end; p += 2)
    if (!IsHighSurrogate(*p) || end - p < 2 || !IsLowSurrogate(p[1])) return false;
  return true;
}

// Stray bytes must not come together to a sequence: they would be read as a character.
bool FormatCheck::MarkedUtf8Holds(StringView text) {
  const char16_t* p = text.data();
  const char16_t* const end = p + text.size();
  while (true) {
    const char16_t* const next = FindSurrogate(p, end);
    if (next != p) pending_.clear();
    if (next == end) return true;
    p = next;
    if (IsHighSurrogate(*p) && end - p >= 2 && IsLowSurrogate(p[1])) {
      pending_.clear();
      p += 2;
      continue;
    }
    if (!IsStrayByte(*p)) return false;
    pending_ += static_cast<char>(*p++ - 0xDC00);
    while (!pending_.empty() && BeginningOf(pending_) == Sequence::Invalid) pending_.erase(0, 1);
    if (!pending_.empty() && BeginningOf(pending_) == Sequence::Complete) return false;
  }
}

void FormatCheck::GoTo(Rung rung) {
  rung_ = rung;
  pending_.clear();
  format_.Mark = rung != Rung::Utf8;
  format_.Encoding = rung == Rung::Utf16 ? Encoding::Utf16Le : Encoding::Utf8;
}
