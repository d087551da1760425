#pragma once
// Raises the letters that begin a line or a sentence. A letter is a character whose upper case is
// one of A to Z.

#include <cstddef>

#include "text/text.h"

// The first letter of each line, unless too much stands in front of it.
class LineCapitals {
 public:
  void Change(String& line);

 private:
  // Characters without a letter that were passed over since it last was above the limit, on earlier
  // lines as well.
  std::size_t passedOver_ = 0;
};

// The first letter of each sentence, and the pronoun "I".
class SentenceCapitals {
 public:
  void Change(String& line);

 private:
  bool firstLine_ = true;
  bool sentenceBegins_ = false;
};
