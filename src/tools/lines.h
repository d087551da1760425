#pragma once
// The table of a text's lines, for tools that look at more than one line at a time.

#include <cstddef>
#include <vector>

#include "tools/line_io.h"

// Rows count from 1.
class Lines {
 public:
  static constexpr std::size_t kMostRows = 30000;

  Lines() = default;
  // Reads the source to its end. RuntimeError 9 for more than kMostRows lines.
  explicit Lines(LineSource& source);

  // Adds a row. RuntimeError 9 when there is no place left.
  void Add(StringView row);
  std::size_t Count() const { return rows_.size(); }
  // Of 1 to Count().
  String& operator[](std::size_t row) { return rows_[row - 1]; }
  // Rows past the last one read as empty.
  StringView At(std::size_t row) const {
    return row - 1 < rows_.size() ? StringView(rows_[row - 1]) : StringView();
  }
  // Rows first to last; none when last is below first.
  void PrintTo(LineSink& sink, std::size_t first, std::size_t last) const;
  void PrintTo(LineSink& sink) const { PrintTo(sink, 1, Count()); }

 private:
  std::vector<String> rows_;
};
