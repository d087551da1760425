#include "platform/system/byte_blocks.h"
#include "platform/system/byte_lines.h"
#include "platform/system/text_encoder.h"
#include "platform/system/text_file.h"
#include "text/encoding.h"
#include "text/format_check.h"

namespace {

TextFormat WithoutBareCrs(TextFormat format) {
  format.BareCrs.clear();
  return format;
}

}  // namespace

struct TextWriter::State {
  State(OutputFile file, const TextFormat& format)
      : Check(WithoutBareCrs(format)),
        LineEnd(format.LineEnds == LineEnds::Lf ? kCrLf.substr(1) : kCrLf),
        Written(Check.Format()),
        Out(std::move(file)),
        Encoder(Written, [this](std::string_view bytes) { Out.Write(bytes); }) {}

  // The loops over characters pay off on more than a line.
  static constexpr std::size_t kEnough = 16 * 1024;

  void Add(StringView text, StringView end) {
    // A CR at the end of the text belongs to the line end behind it.
    if (text.size() >= kEnough && text.back() != kCr) {
      Drain();
      Put(text);
      text = {};
    }
    Waiting.append(text).append(end);
    if (Waiting.size() >= kEnough) Drain();
  }

  void Drain() {
    Put(Waiting);
    Waiting.clear();
  }

  void Put(StringView text) {
    if (!Check.Add(text)) Recode();
    Encoder.PutText(text);
  }

  // Writes the file anew, in the format that it needs by now.
  void Recode() {
    Encoder.Flush();
    InputFile old = Out.TakeContent();
    Encoder.Restart(Check.Format());

    const std::uint64_t bytes = old.Size() - MarkOf(Written).size();
    ByteLines lines(std::move(old), Written, bytes);
    String text(kBlockSize, u'\0');
    while (!lines.AtEnd()) {
      const ByteLines::Piece piece = lines.NextPiece();
      Encoder.Put(Decode(piece.Bytes, Written.Encoding, text.data()));
      Encoder.Put(ByteLines::Characters(piece.End));
    }
    Written = Check.Format();
  }

  void Close() {
    if (Closed) return;
    Closed = true;
    Drain();
    if (!Check.Finish()) Recode();
    Encoder.Finish();
    Out.Close();
  }

  FormatCheck Check;
  StringView LineEnd;
  // What the file is in so far.
  TextFormat Written;
  OutputFile Out;
  TextEncoder Encoder;
  // Whole calls only, so that no line end or pair is cut.
  String Waiting;
  bool Closed = false;
};

TextWriter::TextWriter(const String& path, const TextFormat& format)
    : TextWriter(OutputFile(path), format) {}

TextWriter::TextWriter(OutputFile file, const TextFormat& format)
    : state_(std::make_unique<State>(std::move(file), format)) {}

TextWriter::TextWriter(TextWriter&&) noexcept = default;

TextWriter& TextWriter::operator=(TextWriter&& other) noexcept {
  std::swap(state_, other.state_);
  return *this;
}

TextWriter::~TextWriter() {
  try {
    if (state_) state_->Close();
  } catch (...) {
    // Nobody is left to tell; see Close.
  }
}

void TextWriter::Print(StringView line) { state_->Add(line, state_->LineEnd); }

void TextWriter::Write(StringView text) { state_->Add(text, {}); }

void TextWriter::Close() { state_->Close(); }

const TextFormat& TextWriter::Format() const { return state_->Written; }
