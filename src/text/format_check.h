#pragma once
// Which format holds a text that comes in pieces.

#include <string>

#include "text/text_format.h"

// Goes up one ladder, Windows-1252, UTF-8, UTF-8 with a mark, UTF-16 with a mark, as far as the
// text demands. A format holds a text when the bytes would be read as that text again: each rung
// holds all that those below it hold.
class FormatCheck {
 public:
  explicit FormatCheck(const TextFormat& wanted);

  // Takes the next piece. False when another format is needed than before. The halves of a
  // surrogate pair come in one piece.
  bool Add(StringView text);
  // Says that no more will come, with the result of Add.
  bool Finish();
  const TextFormat& Format() const { return format_; }

 private:
  enum class Rung { Page, Utf8, MarkedUtf8, Utf16 };

  bool Holds(StringView text);
  bool PageHolds(StringView text);
  bool Utf8Holds(StringView text) const;
  bool MarkedUtf8Holds(StringView text);
  void GoTo(Rung rung);

  TextFormat format_;
  Rung rung_;
  bool atStart_ = true;
  // Page: what would take the text for another encoding.
  std::string firstBytes_;
  bool readsAsUtf8_ = true;
  bool isAscii_ = true;
  // Bytes that may yet turn out to be a sequence: Page, of the text; MarkedUtf8, of stray bytes.
  std::string pending_;
};
