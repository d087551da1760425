#include "platform/system/text_encoder.h"

#include <algorithm>

#include "platform/system/byte_blocks.h"
#include "text/ascii_runs.h"
#include "text/encoding.h"

TextEncoder::TextEncoder(const TextFormat& format, Sink sink)
    : sink_(std::move(sink)), buffer_(std::make_unique_for_overwrite<char[]>(kBlockSize)) {
  Restart(format);
}

void TextEncoder::Restart(const TextFormat& format) {
  used_ = 0;
  encoding_ = format.Encoding;
  unixText_ = format.LineEnds == LineEnds::Lf;
  oddByte_.clear();
  if (format.OddByte && IsUtf16(encoding_)) oddByte_ = static_cast<char>(*format.OddByte);

  char bytes[2 * kMaxCharacterBytes];
  lineEnd_ = Encode(unixText_ ? StringView(u"\n") : kCrLf, encoding_, bytes);
  PutBytes(MarkOf(format));
}

void TextEncoder::Put(StringView text) {
  while (!text.empty()) {
    std::size_t room = (kBlockSize - used_) / kMaxCharacterBytes;
    if (room < text.size() && room < kBlockSize / 16) {
      Flush();
      room = kBlockSize / kMaxCharacterBytes;
    }
    std::size_t size = std::min(room, text.size());
    if (size < text.size() && IsHighSurrogate(text[size - 1])) --size;
    used_ += Encode(text.substr(0, size), encoding_, buffer_.get() + used_).size();
    text.remove_prefix(size);
  }
}

void TextEncoder::PutText(StringView text) {
  if (!unixText_) return Put(text);
  const char16_t* p = text.data();
  const char16_t* const end = p + text.size();
  while (true) {
    const char16_t* const cr = FindUnit(p, end, kCr);
    Put(StringView(p, static_cast<std::size_t>(cr - p)));
    if (cr == end) return;
    PutLineEnd();
    p = cr + 1;
    if (p != end && *p == kLf) ++p;
  }
}

void TextEncoder::PutLineEnd() { PutBytes(lineEnd_); }

void TextEncoder::Finish() {
  PutBytes(oddByte_);
  Flush();
}

void TextEncoder::Flush() {
  if (used_ > 0) sink_({buffer_.get(), used_});
  used_ = 0;
}

void TextEncoder::PutBytes(std::string_view bytes) {
  if (kBlockSize - used_ < bytes.size()) Flush();
  std::copy(bytes.begin(), bytes.end(), buffer_.get() + used_);
  used_ += bytes.size();
}
