#include "platform/system/byte_lines.h"

#include <algorithm>
#include <new>
#include <tuple>

#include "platform/system/byte_blocks.h"
#include "text/encoding.h"

ByteLines::ByteLines(InputFile file, const TextFormat& format, std::uint64_t bytes)
    : file_(std::move(file)),
      encoding_(format.Encoding),
      unit_(IsUtf16(encoding_) ? 2 : 1),
      endCharacter_(format.LineEnds == LineEnds::Lf ? '\n' : '\r'),
      markSize_(MarkOf(format).size()),
      bytes_(bytes) {
  AllocateBlock();
  Rewind();
}

StringView ByteLines::Characters(End end) {
  constexpr StringView kCharacters[] = {u"", kCrLf, u"\r", u"\n"};
  return kCharacters[static_cast<int>(end)];
}

void ByteLines::Rewind() {
  file_.Rewind();
  for (std::size_t skipped = 0; skipped < markSize_;) {
    const std::size_t got = file_.Read(buffer_.get(), markSize_ - skipped);
    if (got == 0) break;
    skipped += got;
  }
  begin_ = end_ = 0;
  unread_ = bytes_;
}

void ByteLines::Release() {
  begin_ = end_ = 0;
  unread_ = 0;
  AllocateBlock();
}

ByteLines::Piece ByteLines::Next(bool wholeLine) {
  std::size_t scanned = 0;
  while (true) {
    const std::size_t length = FindEnd(scanned);
    const bool found = length != std::string_view::npos;
    // Behind a CR the LF may be in the next block.
    const bool complete =
        endCharacter_ == '\n' || unread_ == 0 || length + 2 * unit_ <= Rest().size();
    if (found && complete) return TakeLine(length);
    if (!found && unread_ == 0) return {Take(Rest().size()), End::None};
    scanned = found ? length : Rest().size() / unit_ * unit_;
    if (!wholeLine && Rest().size() == capacity_)
      return {Take(WholeCharacters(Rest().substr(0, scanned), encoding_)), End::None};
    Fill();
  }
}

std::size_t ByteLines::FindEnd(std::size_t from) const {
  const std::string_view rest = Rest();
  if (unit_ == 1) return rest.find(endCharacter_, from);
  while (true) {
    const std::size_t place = rest.find(endCharacter_, from);
    if (place == std::string_view::npos) return place;
    const std::size_t unit = place / 2 * 2;
    if (IsAt(unit, endCharacter_)) return unit;
    from = place + 1;
  }
}

bool ByteLines::IsAt(std::size_t offset, char character) const {
  const std::string_view rest = Rest();
  if (offset + unit_ > rest.size()) return false;
  if (unit_ == 1) return rest[offset] == character;
  const std::size_t low = encoding_ == Encoding::Utf16Le ? 0 : 1;
  return rest[offset + low] == character && rest[offset + 1 - low] == '\0';
}

ByteLines::Piece ByteLines::TakeLine(std::size_t length) {
  End end = End::Lf;
  if (endCharacter_ == '\r') end = IsAt(length + unit_, '\n') ? End::CrLf : End::Cr;
  const std::string_view bytes = Take(length);
  begin_ += end == End::CrLf ? 2 * unit_ : unit_;
  return {bytes, end};
}

std::string_view ByteLines::Take(std::size_t length) {
  const std::string_view bytes = Rest().substr(0, length);
  begin_ += length;
  return bytes;
}

void ByteLines::AllocateBlock() {
  Allocate(static_cast<std::size_t>(std::clamp<std::uint64_t>(bytes_, 16, kBlockSize)));
}

void ByteLines::Allocate(std::size_t capacity) {
  void* const memory = std::realloc(buffer_.get(), capacity);
  if (memory == nullptr) throw std::bad_alloc();
  std::ignore = buffer_.release();
  buffer_.reset(static_cast<char*>(memory));
  capacity_ = capacity;
}

void ByteLines::Fill() {
  const std::size_t kept = Rest().size();
  if (kept == capacity_) {
    Allocate(static_cast<std::size_t>(std::min<std::uint64_t>(2 * kept, kept + unread_)));
  } else {
    std::memmove(buffer_.get(), buffer_.get() + begin_, kept);
  }
  begin_ = 0;
  end_ = kept;
  const std::size_t room = capacity_ - kept;
  const std::size_t got = file_.Read(
      buffer_.get() + kept, static_cast<std::size_t>(std::min<std::uint64_t>(room, unread_)));
  end_ += got;
  // A file that has become shorter since it was looked at ends where it ends.
  unread_ = got == 0 ? 0 : unread_ - got;
}
