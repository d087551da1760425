#pragma once
// A text in the shape in which Search and Replace compares it, and what may stand round a whole
// word.

#include <cstddef>

#include "text/text.h"

// Whether a character may stand behind a whole word, and in front of one. There, nothing (the end
// or the start of the line) is as good.
bool EndsWord(char16_t behind);
bool BeginsWord(char16_t front);

// Whether upper and lower case make no difference to a search for this text.
bool HasNoCase(StringView text);

// A text in both the shape that is compared and the one that is written. Without match case the
// first is in upper case; a character stands for a character.
class ComparedText {
 public:
  void Set(StringView text, bool matchCase) {
    text_ = text;
    if (!matchCase) UCaseInto(text, upper_);
    compared_ = matchCase ? text_ : StringView(upper_).substr(0, text.size());
  }
  StringView Text() const { return text_; }
  StringView Compared() const { return compared_; }

 private:
  StringView text_;
  StringView compared_;
  String upper_;
};
