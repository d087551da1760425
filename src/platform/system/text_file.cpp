#include "platform/system/text_file.h"

#include "platform/system/byte_blocks.h"
#include "platform/system/byte_lines.h"
#include "platform/system/format_probe.h"
#include "platform/system/safe_save.h"
#include "platform/system/text_encoder.h"
#include "text/encoding.h"
#include "text/format_check.h"
#include "text/runtime_error.h"
#include "text/utf8.h"

LoadedText ReadTextFile(InputFile file) {
  FileShape shape = ProbeFile(file);
  const bool isUnix = shape.Format.LineEnds == LineEnds::Lf;
  const bool hasBareCrs = shape.BareCrs > 0;

  LoadedText loaded{.Text = {}, .Format = std::move(shape.Format)};
  loaded.Text.reserve(static_cast<std::size_t>(shape.MostCharacters + shape.BareCrs +
                                               (isUnix ? shape.BareLfs : 0)));
  if (hasBareCrs)
    loaded.Format.BareCrs.reserve(static_cast<std::size_t>(shape.BareCrs + shape.CrLfs));

  ByteLines lines(std::move(file), loaded.Format, shape.Bytes);
  String line(static_cast<std::size_t>(std::min<std::uint64_t>(kBlockSize, shape.Bytes)), u'\0');
  while (!lines.AtEnd()) {
    const ByteLines::Piece piece = lines.NextPiece();
    loaded.Text += Decode(piece.Bytes, loaded.Format.Encoding, line.data());
    if (piece.End == ByteLines::End::None) continue;
    loaded.Text += kCrLf;
    if (hasBareCrs) loaded.Format.BareCrs.push_back(piece.End == ByteLines::End::Cr);
  }
  return loaded;
}

LoadedText ReadTextFile(const String& path) { return ReadTextFile(InputFile(path)); }

TextFormat FormatThatHolds(StringView text, const TextFormat& wanted) {
  FormatCheck check(wanted);
  check.Add(text);
  check.Finish();
  return check.Format();
}

namespace {

// A text of which nothing was changed: each line end as it was.
void PutUnchanged(TextEncoder& encoder, StringView text, const std::vector<bool>& bareCrs) {
  std::size_t at = 0;
  for (const bool isBare : bareCrs) {
    const std::size_t end = text.find(kCrLf, at);
    if (end == StringView::npos) break;
    encoder.Put(text.substr(at, end - at));
    encoder.Put(kCrLf.substr(0, isBare ? 1 : 2));
    at = end + kCrLf.size();
  }
  encoder.PutText(text.substr(at));
}

}  // namespace

void WriteTextFile(const String& path, StringView text, const TextFormat& format,
                   const String& model) {
  const TextFormat holding = FormatThatHolds(text, format);
  SafeSave(
      path,
      [&](const ByteSink& sink) {
        TextEncoder encoder(holding, sink);
        PutUnchanged(encoder, text, holding.BareCrs);
        encoder.Finish();
      },
      model);
}

void WriteWorkFile(const String& path, StringView text) { WriteWorkFile(OutputFile(path), text); }

void WriteWorkFile(OutputFile file, StringView text) {
  std::string block;
  while (!text.empty()) {
    std::size_t size = std::min(text.size(), kBlockSize);
    if (size < text.size() && IsHighSurrogate(text[size - 1])) --size;
    block.resize(size * kMaxCharacterBytes);
    file.Write(EncodeUtf8(text.substr(0, size), LoneSurrogates::AsSequences, block.data()));
    text.remove_prefix(size);
  }
  file.Close();
}

String ReadWorkFile(const String& path) { return ReadWorkFile(InputFile(path)); }

String ReadWorkFile(InputFile file) {
  String text;
  text.reserve(static_cast<std::size_t>(file.Size()));
  String block(kBlockSize, u'\0');
  ReadBlocks(file, [&](std::string_view bytes, bool isLast) {
    if (!isLast) bytes = bytes.substr(0, WholeSequences(bytes));
    text += DecodeUtf8(bytes, LoneSurrogates::AsSequences, block.data());
    return bytes.size();
  });
  return text;
}

std::vector<String> ReadDataFile(const String& path) {
  InputFile file(path);
  if (file.Size() > kMostDataBytes)
    throw RuntimeError(kOutOfMemory, ToUtf8(path) + " is too large for a data file");
  const String text = ReadTextFile(std::move(file)).Text;
  std::vector<String> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find(kLf, at), text.size());
    const bool hasCr = end < text.size() && end > at && text[end - 1] == kCr;
    lines.emplace_back(text, at, end - at - (hasCr ? 1 : 0));
    at = end + 1;
  }
  return lines;
}

void WriteDataFile(const String& path, const std::vector<String>& lines) {
  String text;
  for (const String& line : lines) text.append(line).append(kCrLf);
  TextFormat format;
  format.Encoding = Encoding::Windows1252;
  WriteTextFile(path, text, format);
}
