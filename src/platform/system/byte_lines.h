#pragma once
// The lines of a text file as bytes.

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "platform/system/byte_file.h"
#include "text/text_format.h"

class ByteLines {
 public:
  enum class End { None, CrLf, Cr, Lf };
  // Holds until the next call.
  struct Piece {
    std::string_view Bytes;
    // None where the line goes on in the next piece, and at the end of the file.
    ByteLines::End End;
  };

  // What a line end is in characters.
  static StringView Characters(End end);

  // Of the first `bytes` bytes behind the mark; what stands behind them does not count.
  ByteLines(InputFile file, const TextFormat& format, std::uint64_t bytes);

  const String& Path() const { return file_.Path(); }
  bool AtEnd() const { return begin_ == end_ && unread_ == 0; }
  // A line, however long.
  Piece NextLine() { return Next(true); }
  // A line, or so much of a long one that memory stays constant; never part of a character.
  Piece NextPiece() { return Next(false); }
  void Rewind();
  // Frees the buffer of a long line; what has not been read is passed over.
  void Release();

 private:
  Piece Next(bool wholeLine);
  // Where the line end at or behind offset `from` of the rest begins, or npos.
  std::size_t FindEnd(std::size_t from) const;
  Piece TakeLine(std::size_t length);
  std::string_view Take(std::size_t length);
  void Allocate(std::size_t capacity);
  void AllocateBlock();
  void Fill();

  std::string_view Rest() const { return {buffer_.get() + begin_, end_ - begin_}; }
  bool IsAt(std::size_t offset, char character) const;

  InputFile file_;
  ::Encoding encoding_;
  std::size_t unit_;
  char endCharacter_;
  std::size_t markSize_;
  std::uint64_t bytes_;
  std::uint64_t unread_ = 0;
  std::size_t capacity_ = 0;
  // Of malloc, so that a long line can make it grow where it stands.
  struct Free {
    void operator()(char* memory) const { std::free(memory); }
  };
  std::unique_ptr<char, Free> buffer_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
};
