#pragma once
// Text files: bytes in, String out, and back to the same bytes when nothing was changed.
//
// Reading: a byte-order mark decides the encoding; else valid UTF-8 is UTF-8; else the file is
// Windows-1252, each byte one character. Stray bytes behind a UTF-8 mark become U+DC80..U+DCFF and
// bytes again. Only regular files are read and written: folders, pipes and devices are RuntimeError
// 75 (a folder, too), a missing file 53, others as CodeFromErrno tells.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/system/byte_file.h"
#include "text/text_format.h"

struct LoadedText {
  // Line ends are CR LF, whatever the file has.
  String Text;
  TextFormat Format;
};

LoadedText ReadTextFile(const String& path);
LoadedText ReadTextFile(InputFile file);

// The format that holds all of a text: `wanted` itself where that does. A character outside
// Windows-1252 makes it UTF-8; a lone surrogate that UTF-8 has no bytes for makes it UTF-16 LE with
// a mark.
TextFormat FormatThatHolds(StringView text, const TextFormat& wanted);

// Writes a text over a file, which holds either its old or its new content at every moment (see
// safe_save.h, for the model as well). The text's line ends are CR LF. RuntimeError, and the file
// is as it was.
void WriteTextFile(const String& path, StringView text, const TextFormat& format,
                   const String& model = {});

// A work file: the text exactly, lone surrogates and LFs included, for this program alone; mode
// 0600. No protection against a failure half way.
void WriteWorkFile(const String& path, StringView text);
void WriteWorkFile(OutputFile file, StringView text);
String ReadWorkFile(const String& path);
String ReadWorkFile(InputFile file);

// No data file that the program writes comes near this.
inline constexpr std::uint64_t kMostDataBytes = 64 * 1024 * 1024;
// The lines of a program's own data file: CR, CR LF and LF all end a line. RuntimeError 7 for one
// of more than kMostDataBytes.
std::vector<String> ReadDataFile(const String& path);
// With CR LF, in Windows-1252 where that reads back the same, else in UTF-8. Safe like
// WriteTextFile.
void WriteDataFile(const String& path, const std::vector<String>& lines);

// Reads a text file line by line in constant memory (plus the longest line).
class TextReader {
 public:
  // Reads the file through once to find its format.
  explicit TextReader(const String& path);
  // A file whose format is known, from a TextReader or from the TextWriter that has written it.
  TextReader(const String& path, const TextFormat& format);
  explicit TextReader(InputFile file);
  TextReader(InputFile file, const TextFormat& format);
  TextReader(TextReader&&) noexcept;
  TextReader& operator=(TextReader&&) noexcept;
  ~TextReader();

  const String& Path() const;
  // Without BareCrs.
  const TextFormat& Format() const;
  bool AtEnd() const;
  // The next line without its end, as it stands in the file. The view holds until the next call.
  // RuntimeError 62 at the end.
  StringView ReadLine();
  // The same line as a text of the caller's own, without the reader keeping one as long.
  String TakeLine();
  // Whether the line read last had an end; true before the first.
  bool LastLineEnded() const;
  // Goes back to the first line.
  void Rewind();
  // Frees what a long line has taken; for a reader that is at the end.
  void Release();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

// Writes lines in a format, in constant memory. A character that the format can't hold changes the
// encoding of the whole file, as FormatThatHolds tells.
class TextWriter {
 public:
  // A work file.
  TextWriter(const String& path, const TextFormat& format);
  TextWriter(OutputFile file, const TextFormat& format);
  TextWriter(TextWriter&&) noexcept;
  TextWriter& operator=(TextWriter&&) noexcept;
  // Closes; a failure that only shows then is lost, so call Close.
  ~TextWriter();

  // The line and its end.
  void Print(StringView line);
  // No line end is added; CR LF inside becomes the line end of the format. A CR and its LF, and the
  // halves of a surrogate pair, must come in the same call.
  void Write(StringView text);
  void Close();
  // What the file has turned out to need; final once it is closed.
  const TextFormat& Format() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};
