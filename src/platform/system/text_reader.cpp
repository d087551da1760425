#include "platform/system/byte_lines.h"
#include "platform/system/format_probe.h"
#include "platform/system/text_file.h"
#include "text/encoding.h"
#include "text/runtime_error.h"

struct TextReader::State {
  explicit State(InputFile file)
      : Shape(ProbeFile(file)), Lines(std::move(file), Shape.Format, Shape.Bytes) {}

  State(InputFile file, const TextFormat& format)
      : Shape{.Format = format, .Bytes = TextBytes(file, format)},
        Lines(std::move(file), format, Shape.Bytes) {}

  static std::uint64_t TextBytes(const InputFile& file, const TextFormat& format) {
    return file.Size() - MarkOf(format).size() - (format.OddByte ? 1 : 0);
  }

  std::string_view NextBytes() {
    if (Lines.AtEnd()) throw RuntimeError(kInputPastEnd, "Input past the end of the file");
    const auto [bytes, end] = Lines.NextLine();
    Ended = end != ByteLines::End::None;
    return bytes;
  }

  FileShape Shape;
  ByteLines Lines;
  // Only ever grows.
  String Line;
  bool Ended = true;
};

TextReader::TextReader(const String& path) : TextReader(InputFile(path)) {}
TextReader::TextReader(const String& path, const TextFormat& format)
    : TextReader(InputFile(path), format) {}
TextReader::TextReader(InputFile file) : state_(std::make_unique<State>(std::move(file))) {}
TextReader::TextReader(InputFile file, const TextFormat& format)
    : state_(std::make_unique<State>(std::move(file), format)) {}
TextReader::TextReader(TextReader&&) noexcept = default;
TextReader& TextReader::operator=(TextReader&&) noexcept = default;
TextReader::~TextReader() = default;

const String& TextReader::Path() const { return state_->Lines.Path(); }

const TextFormat& TextReader::Format() const { return state_->Shape.Format; }

bool TextReader::AtEnd() const { return state_->Lines.AtEnd(); }

StringView TextReader::ReadLine() {
  const std::string_view bytes = state_->NextBytes();
  String& line = state_->Line;
  if (line.size() < bytes.size()) line.resize(bytes.size());
  return Decode(bytes, Format().Encoding, line.data());
}

String TextReader::TakeLine() {
  const std::string_view bytes = state_->NextBytes();
  String line(bytes.size(), u'\0');
  line.resize(Decode(bytes, Format().Encoding, line.data()).size());
  line.shrink_to_fit();
  return line;
}

bool TextReader::LastLineEnded() const { return state_->Ended; }

void TextReader::Release() {
  state_->Line = String();
  state_->Lines.Release();
}

void TextReader::Rewind() { state_->Lines.Rewind(); }
