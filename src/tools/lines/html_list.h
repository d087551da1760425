#pragma once
// The lines of a text that make up a list.

#include "tools/lines/lines.h"

class HtmlList {
 public:
  // A list has at least five lines that begin with a digit or a bullet, close together, and hardly
  // any of them behind a blank line.
  explicit HtmlList(const Lines& lines);

  // The row that begins the list without a mark of its own; 0 for none.
  std::size_t FirstLine() const { return firstLine_; }
  // Whether a line is one of a list.
  bool IsItem(StringView line) const { return isList_ && HasMark(line); }

 private:
  static bool HasMark(StringView line);

  bool isList_ = false;
  std::size_t firstLine_ = 0;
};
