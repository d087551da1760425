#include "platform/system/format_probe.h"

#include "platform/system/byte_blocks.h"
#include "text/ascii_runs.h"
#include "text/encoding.h"

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

// Whether bytes are valid UTF-8 and how many characters that makes. Each byte is judged by the
// three in front of it, without a branch, so that text of any script is checked many bytes at a
// time.
class Utf8Check {
 public:
  // Sequences don't go on from one call to the next.
  void Add(const unsigned char* p, std::size_t size) {
    if (size == 0 || !isValid_) return;
    const auto at = [&](std::size_t i) { return i < size ? p[i] : std::uint8_t{0}; };
    std::uint8_t flaws = 0;
    // The edges, with nothing on their other side.
    for (std::size_t i = 0; i < 3; ++i) {
      flaws = static_cast<std::uint8_t>(
          flaws | Flaw(at(i), i > 0 ? at(i - 1) : 0, i > 1 ? at(i - 2) : 0, 0));
      const std::size_t behind = std::max<std::size_t>(size, 3) + i;
      flaws = static_cast<std::uint8_t>(flaws |
                                        Flaw(0, at(behind - 1), at(behind - 2), at(behind - 3)));
      characters_ += i < size ? Units(p[i]) : 0;
    }
    constexpr std::size_t kStretch = 96;
    static_assert(2 * kStretch < 256 && kStretch % kRun == 0);
    std::size_t i = 3;
    for (; i + kStretch <= size; i += kStretch) {
      if (IsAscii(p + i - 3, kStretch + 3))
        characters_ += kStretch;
      else
        flaws = Check(p + i, kStretch, flaws);
    }
    if (i < size) flaws = Check(p + i, size - i, flaws);
    isValid_ = flaws == 0;
  }

  bool IsValid() const { return isValid_; }
  std::uint64_t Characters() const { return characters_; }

 private:
  static std::uint8_t Flaw(std::uint8_t byte, std::uint8_t before1, std::uint8_t before2,
                           std::uint8_t before3) {
    const bool continues = (byte & 0xC0) == 0x80;
    const bool mustContinue = (before1 >= 0xC0) | (before2 >= 0xE0) | (before3 >= 0xF0);
    const bool overlong = (byte == 0xC0) | (byte == 0xC1) | ((before1 == 0xE0) & (byte < 0xA0)) |
                          ((before1 == 0xF0) & (byte < 0x90));
    const bool surrogate = (before1 == 0xED) & (byte >= 0xA0);
    const bool tooLarge = (byte >= 0xF5) | ((before1 == 0xF4) & (byte >= 0x90));
    return (continues != mustContinue) | overlong | surrogate | tooLarge;
  }
  // How many characters of a String the sequence with this byte has, told at its lead.
  static std::uint8_t Units(std::uint8_t byte) {
    return static_cast<std::uint8_t>(((byte & 0xC0) != 0x80) + (byte >= 0xF0));
  }
  static bool IsAscii(const unsigned char* p, std::size_t size) {
    std::uint8_t any = 0;
    for (std::size_t i = 0; i < size; ++i) any |= p[i];
    return any < 0x80;
  }
  // The sum is of one byte, hence a stretch that can't overflow it.
  std::uint8_t Check(const unsigned char* p, std::size_t size, std::uint8_t flaws) {
    std::uint8_t units = 0;
    for (std::size_t i = 0; i < size; ++i) {
      flaws = static_cast<std::uint8_t>(flaws | Flaw(p[i], p[i - 1], p[i - 2], p[i - 3]));
      units = static_cast<std::uint8_t>(units + Units(p[i]));
    }
    characters_ += units;
    return flaws;
  }

  bool isValid_ = true;
  std::uint64_t characters_ = 0;
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
    if (IsUtf16(format.Encoding)) {
      shape_.MostCharacters = shape_.Bytes / 2;
    } else if (utf8_.IsValid()) {
      shape_.MostCharacters = utf8_.Characters();
    } else {
      shape_.MostCharacters = shape_.Bytes;
      if (!format.Mark) format.Encoding = Encoding::Windows1252;
    }
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
    utf8_.Add(AsBytes(text.data()), text.size());
  }

  FileShape shape_;
  LineEndCount ends_;
  bool started_ = false;
  Utf8Check utf8_;
  String units_;
};

}  // namespace

FileShape ProbeFile(InputFile& file) {
  Probe probe;
  ReadBlocks(file, [&](std::string_view bytes, bool isLast) { return probe.Add(bytes, isLast); });
  file.Rewind();
  return probe.Finish();
}
