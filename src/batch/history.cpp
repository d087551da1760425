#include "batch/history.h"

#include <cstdint>

#include "platform/system/byte_blocks.h"
#include "platform/system/files.h"
#include "text/runtime_error.h"
#include "text/utf8.h"
#include "text/windows1252.h"

namespace {

// Longer than any path with the name of its backup.
constexpr std::size_t kLongestLine = 16 * 1024;
constexpr std::size_t kHeadLines = 3;

// Cuts a line, without its end, off the front. False where no whole line is left.
bool TakeLine(std::string_view& bytes, std::string_view& line) {
  const std::size_t end = bytes.find('\n');
  if (end == std::string_view::npos) return false;
  line = bytes.substr(0, end);
  if (line.ends_with('\r')) line.remove_suffix(1);
  bytes.remove_prefix(end + 1);
  return true;
}

// For a person: bytes that are no UTF-8 are Windows-1252.
String Readable(std::string_view bytes) {
  String text = FromUtf8(bytes);
  for (const char16_t c : text) {
    if (!IsStrayByte(c)) continue;
    text.clear();
    for (const char byte : bytes) text += FromWindows1252(static_cast<std::uint8_t>(byte));
    break;
  }
  return text;
}

}  // namespace

History ReadHistoryHead(const String& folder) {
  InputFile file(JoinPath(folder, kHistoryName));
  std::string bytes(kHeadLines * kLongestLine, '\0');
  std::size_t size = 0;
  while (const std::size_t got = file.Read(bytes.data() + size, bytes.size() - size)) size += got;
  std::string_view rest(bytes.data(), size);
  std::string_view lines[kHeadLines];
  for (std::string_view& line : lines)
    if (!TakeLine(rest, line) || line.size() > kLongestLine)
      throw RuntimeError(kInputPastEnd, ToUtf8(file.Path()) + ": no head of a history");
  History history;
  history.NoNameLine = lines[2].find("<TO>") != std::string_view::npos;
  history.Head = {Readable(lines[0]), Readable(lines[1]),
                  history.NoNameLine ? String() : String(Trim(Readable(lines[2])))};
  return history;
}

History ReadHistory(const String& folder, TokenCase tokenCase) {
  History history = ReadHistoryHead(folder);
  InputFile file(JoinPath(folder, kHistoryName));
  std::size_t headLines = history.NoNameLine ? 2 : kHeadLines;
  ReadBlocks(file, [&](std::string_view bytes, bool) {
    std::string_view rest = bytes;
    std::string_view line;
    while (!history.BadLine && TakeLine(rest, line)) {
      if (headLines > 0) {
        --headLines;
        continue;
      }
      HistoryRecord record = ParseRecord(line, tokenCase);
      if (record.Kind == HistoryRecord::Kind::None)
        history.BadLine = true;
      else
        history.Records.push_back(std::move(record));
    }
    if (rest.size() > kLongestLine) history.BadLine = true;
    return history.BadLine ? bytes.size() : bytes.size() - rest.size();
  });
  return history;
}
