#pragma once
// How a file holds its text: what it takes to write it back as it was.

#include <cstdint>
#include <optional>
#include <vector>

#include "text/text.h"

enum class Encoding { Utf8, Utf16Le, Utf16Be, Windows1252 };

// What ends the lines of a file.
enum class LineEnds {
  CrLf,  // CR or CR LF; an LF alone stays inside the line
  Lf,    // LF: a file that holds LF and not one CR
};

struct TextFormat {
  ::Encoding Encoding = ::Encoding::Utf8;
  // A byte-order mark stands in front.
  bool Mark = false;
  ::LineEnds LineEnds = ::LineEnds::CrLf;
  // The last byte of a UTF-16 file with an odd number of bytes, kept and written back.
  std::optional<std::uint8_t> OddByte;
  // Which kinds the file was found to hold.
  bool HasCrLf = false;
  bool HasCr = false;
  bool HasLf = false;
  // For each line end of the text, in order, whether the file has a CR alone there. Empty when it
  // has none. Whoever changes the text clears this: a changed text is written with CR LF.
  std::vector<bool> BareCrs;

  bool operator==(const TextFormat&) const = default;
};

// What the status bar says: "UTF-8", "UTF-8 with BOM", "UTF-16 LE", "UTF-16 BE", "Windows-1252".
String EncodingName(const TextFormat& format);
// "CR LF", "LF", "CR", or "mixed" for a file with more than one kind.
String LineEndsName(const TextFormat& format);
