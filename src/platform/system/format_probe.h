#pragma once
// The first pass over a text file: how it holds its text, and how much that is.

#include <cstdint>

#include "platform/system/byte_file.h"
#include "text/text_format.h"

struct FileShape {
  // Without BareCrs.
  TextFormat Format;
  // Of the text, without the mark and the odd byte.
  std::uint64_t Bytes = 0;
  // Of the text as it stands in the file; fewer only where UTF-8 has stray bytes.
  std::uint64_t MostCharacters = 0;
  std::uint64_t CrLfs = 0;
  std::uint64_t BareCrs = 0;
  std::uint64_t BareLfs = 0;
};

// Reads the file from its start to its end and rewinds it.
FileShape ProbeFile(InputFile& file);
