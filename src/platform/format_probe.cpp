#include "platform/format_probe.h"

#include "platform/ascii_runs.h"
#include "platform/byte_blocks.h"
#include "platform/encoding.h"
#include "platform/utf8.h"

namespace {

class LineEndCount {
 public:
  template <typename Unit>
  void Add(const Unit* p, std::size_t size) {
    if (size == 0) return;
    Count(*p, previous_);
    // Sums of one byte each, hence stretches that can't overflow them.
    constexpr std::size_t kStretch = 128;
    for (std::size_t at = 1; at < size; at += kStretch) {
      const std::size_t stop = std::min(at + kStretch, size);
      std::uint8_t crs = 0, lfs = 0, pairs = 0;
      for (std::size_t i = at; i < stop; ++i) {
        const auto isLf = static_cast<std::uint8_t>(p[i] == '\n');
        crs = static_cast<std::uint8_t>(crs + (p[i] == '\r'));
        lfs = static_cast<std::uint8_t>(lfs + isLf);
        pairs = static_cast<std::uint8_t>(pairs + (isLf & (p[i - 1] == '\r')));
      }
      crs_ += crs;
      lfs_ += lfs;
      pairs_ += pairs;
    }
    previous_ = p[size - 1];
  }

  void Report(FileShape& shape) const {
    shape.CrLfs = pairs_;
    shape.BareCrs = crs_ - pairs_;
    shape.BareLfs = lfs_ - pairs_;
  }

 private:
  void Count(char16_t unit, char16_t before) {
    crs_ += unit == u'\r';
    lfs_ += unit == u'\n';
    pairs_ += unit == u'\n' && before == u'\r';
  }

  std::uint64_t crs_ = 0, lfs_ = 0, pairs_ = 0;
  char16_t previous_ = 0;
};

class Probe {
 public:
  // Returns how many bytes it has used.
  std::size_t Add(std::string_view bytes, bool isLast) {
    std::size_t mark = 0;
    if (!started_) {
      if (bytes.size() < 3 && !isLast) return 0;
      started_ = true;
      mark = ReadMark(bytes);
    }
    std::string_view text = bytes.substr(mark);
    const std::size_t whole = WholeCharacters(text, shape_.Format.Encoding);
    if (isLast && IsUtf16(shape_.Format.Encoding) && whole < text.size())
      shape_.Format.OddByte = static_cast<std::uint8_t>(text.back());
    if (!isLast || IsUtf16(shape_.Format.Encoding)) text = text.substr(0, whole);
    AddText(text);
    return mark + text.size();
  }

  FileShape Finish() {
    ends_.Report(shape_);
    TextFormat& format = shape_.Format;
    if (isUtf8_) {
      shape_.Characters = shape_.Bytes - surplus_;
    } else {
      format.Encoding = Encoding::Windows1252;
      shape_.Characters = shape_.Bytes;
    }
    if (IsUtf16(format.Encoding)) shape_.Characters = shape_.Bytes / 2;
    format.HasCrLf = shape_.CrLfs > 0;
    format.HasCr = shape_.BareCrs > 0;
    format.HasLf = shape_.BareLfs > 0;
    if (format.HasLf && !format.HasCrLf && !format.HasCr) format.LineEnds = LineEnds::Lf;
    return shape_;
  }

 private:
  std::size_t ReadMark(std::string_view bytes) {
    for (const Encoding encoding : {Encoding::Utf8, Encoding::Utf16Le, Encoding::Utf16Be}) {
      TextFormat marked;
      marked.Encoding = encoding;
      marked.Mark = true;
      if (!bytes.starts_with(MarkOf(marked))) continue;
      shape_.Format = marked;
      return MarkOf(marked).size();
    }
    return 0;
  }

  void AddText(std::string_view text) {
    shape_.Bytes += text.size();
    if (IsUtf16(shape_.Format.Encoding)) {
      units_.resize(std::max(units_.size(), text.size() / 2));
      Decode(text, shape_.Format.Encoding, units_.data());
      ends_.Add(units_.data(), text.size() / 2);
      return;
    }
    ends_.Add(AsBytes(text.data()), text.size());
    if (isUtf8_) AddUtf8(AsBytes(text.data()), AsBytes(text.data()) + text.size());
  }

  void AddUtf8(const unsigned char* p, const unsigned char* end) {
    while (p != end) {
      if (end - p >= kRun && IsAsciiRun(p)) {
        p += kRun;
        continue;
      }
      const unsigned char* const stop = end - p >= kRun ? p + kRun : end;
      while (p < stop) {
        if (*p < 0x80) {
          ++p;
          continue;
        }
        const SequenceAt at = ReadSequence(p, end);
        if (at.Kind == Sequence::Complete) {
          surplus_ += at.Length == 4 ? 2 : static_cast<unsigned>(at.Length) - 1;
          p += at.Length;
        } else if (shape_.Format.Mark) {
          ++p;
        } else {
          isUtf8_ = false;
          return;
        }
      }
    }
  }

  FileShape shape_;
  LineEndCount ends_;
  bool started_ = false;
  bool isUtf8_ = true;
  // Bytes of UTF-8 beyond one for each character.
  std::uint64_t surplus_ = 0;
  String units_;
};

}  // namespace

FileShape ProbeFile(InputFile& file) {
  Probe probe;
  ReadBlocks(file, [&](std::string_view bytes, bool isLast) { return probe.Add(bytes, isLast); });
  file.Rewind();
  return probe.Finish();
}
