#include "platform/qt/document_text.h"

#include <QTextBlock>
#include <algorithm>
#include <bitset>
#include <limits>

#include "platform/qt/large_string.h"
#include "text/runtime_error.h"

namespace {

constexpr char16_t kLineBreak = 0x2028;
constexpr char16_t kBlockEnd = 0x2029;
constexpr std::array<char16_t, 4> kImpossible = {kLineBreak, kBlockEnd, 0xFDD0, 0xFDD1};

// Below this character only CR and LF are special, as long as no stand-in lies here.
constexpr char16_t kFirstRare = kLineBreak;

// Where stand-ins are looked for, the least likely characters first.
constexpr struct {
  char16_t First, Last;
} kCandidates[] = {{0xFDD2, 0xFDEF}, {0xE000, 0xF8FF}, {0x0001, 0xFFFF}};

bool IsImpossible(char16_t c) {
  return std::find(kImpossible.begin(), kImpossible.end(), c) != kImpossible.end();
}

}  // namespace

char16_t DocumentText::StandInFor(char16_t character) const {
  for (std::size_t i = 0; i < kImpossible.size(); ++i)
    if (kImpossible[i] == character) return standIns_[i];
  return character;
}

char16_t DocumentText::StoodFor(char16_t character) const {
  for (std::size_t i = 0; i < kImpossible.size(); ++i)
    if (standIns_[i] == character) return kImpossible[i];
  return character;
}

std::optional<QString> DocumentText::ToDocument(StringView text) const {
  if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max() - 1))
    throw RuntimeError(kOutOfMemory, "The text is too long for the window.");
  const char16_t lowestStandIn = *std::min_element(standIns_.begin(), standIns_.end());
  const char16_t firstRare = std::min(kFirstRare, lowestStandIn);
  QString result(static_cast<qsizetype>(text.size()), Qt::Uninitialized);
  auto* const begin = reinterpret_cast<char16_t*>(result.data());
  auto* out = begin;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t c = text[i];
    if (c == kCr) {
      *out++ = kBlockEnd;
      if (i + 1 < text.size() && text[i + 1] == kLf) ++i;
    } else if (c == kLf) {
      *out++ = kLineBreak;
    } else if (c < firstRare) {
      *out++ = c;
    } else {
      if (StoodFor(c) != c) return std::nullopt;
      *out++ = StandInFor(c);
    }
  }
  result.truncate(out - begin);
  return result;
}

String DocumentText::FromDocument(QStringView raw) const {
  const char16_t lowestStandIn = *std::min_element(standIns_.begin(), standIns_.end());
  const char16_t firstRare = std::min(kFirstRare, lowestStandIn);
  const StringView in(raw.utf16(), static_cast<std::size_t>(raw.size()));
  const auto lineEnds = static_cast<std::size_t>(std::count(in.begin(), in.end(), kBlockEnd));
  String result = WithRoomFor(in.size() + lineEnds);
  result.resize(in.size() + lineEnds);
  auto* out = result.data();
  for (const char16_t c : in) {
    if (c < firstRare) {
      *out++ = c;
    } else if (c == kBlockEnd) {
      *out++ = kCr;
      *out++ = kLf;
    } else {
      *out++ = c == kLineBreak ? kLf : StoodFor(c);
    }
  }
  return result;
}

bool DocumentText::NeedsConversion(StringView text) const {
  return std::any_of(text.begin(), text.end(),
                     [this](char16_t c) { return IsImpossible(c) || StoodFor(c) != c; });
}

DocumentText DocumentText::For(std::initializer_list<StringView> texts) {
  std::bitset<0x10000> taken;
  for (const char16_t c : {kCr, kLf}) taken.set(c);
  for (const char16_t c : kImpossible) taken.set(c);
  for (const StringView text : texts)
    for (const char16_t c : text) taken.set(c);

  DocumentText result;
  std::size_t found = 0;
  for (const auto [first, last] : kCandidates)
    for (std::uint32_t c = first; c <= last && found < result.standIns_.size(); ++c) {
      if (taken.test(c)) continue;
      taken.set(c);
      result.standIns_[found++] = static_cast<char16_t>(c);
    }
  if (found < result.standIns_.size())
    throw RuntimeError(kInvalidCall, "The text holds more different characters than a window can.");
  return result;
}

std::size_t TextPosition(const QTextDocument& document, int position) {
  return static_cast<std::size_t>(position) +
         static_cast<std::size_t>(document.findBlock(position).blockNumber());
}

int DocumentPosition(const QTextDocument& document, std::size_t position) {
  // The last block that starts at or before the position; block b has b line ends before it.
  int low = 0;
  int high = document.blockCount();
  const auto start = [&](int block) {
    return static_cast<std::size_t>(document.findBlockByNumber(block).position()) +
           static_cast<std::size_t>(block);
  };
  while (high - low > 1) {
    const int middle = low + (high - low) / 2;
    (start(middle) <= position ? low : high) = middle;
  }
  const QTextBlock block = document.findBlockByNumber(low);
  const auto longest = static_cast<std::size_t>(block.length() - 1);
  return block.position() + static_cast<int>(std::min(position - start(low), longest));
}
