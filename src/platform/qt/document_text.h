#pragma once
// Text as a QTextDocument holds it, and positions in it.
//
// In the document U+2029 parts the blocks, so a line end is one character there, and U+2028 is an
// LF that stays inside the line. Four characters of a text can't stand in a document as themselves:
// U+2028, U+2029, U+FDD0 and U+FDD1. Others stand in for them, which the text itself must not hold;
// so they are chosen by the text.

#include <QString>
#include <QTextDocument>
#include <array>
#include <optional>

#include "text/text.h"

class DocumentText {
 public:
  // A text with a line end for each CR and CR LF; nothing when the text holds a stand-in.
  std::optional<QString> ToDocument(StringView text) const;
  // Raw text of a document, as toRawText and selectedText give it.
  String FromDocument(QStringView raw) const;
  // Whether a document can't take this text as it stands.
  bool NeedsConversion(StringView text) const;

  // With stand-ins that none of the texts holds. RuntimeError when there are no such four.
  static DocumentText For(std::initializer_list<StringView> texts);

 private:
  char16_t StandInFor(char16_t character) const;
  char16_t StoodFor(char16_t character) const;

  std::array<char16_t, 4> standIns_ = {0xFDD2, 0xFDD3, 0xFDD4, 0xFDD5};
};

// Positions in the text, where a line end counts two, from positions in the document, and back. A
// position inside a line end counts as the one before it, one past the end as the end.
std::size_t TextPosition(const QTextDocument& document, int position);
int DocumentPosition(const QTextDocument& document, std::size_t position);
