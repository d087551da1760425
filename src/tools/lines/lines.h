#pragma once
// The table of a text's lines, for tools that look at more than one line at a time, and its bound.

#include <algorithm>
#include <cstddef>
#include <vector>

#include "tools/lines/line_io.h"

// Lines for a tool of the table that can do with one of them at a time: RuntimeError 9 at the line
// that would not fit the table.
class BoundedSource : public LineSource {
 public:
  explicit BoundedSource(LineSource& source) : source_(source) {}
  bool AtEnd() const override { return source_.AtEnd(); }
  StringView ReadLine() override;
  void Release() override { source_.Release(); }

 private:
  LineSource& source_;
  std::size_t count_ = 0;
};

// Rows count from 1.
class Lines {
 public:
  static constexpr std::size_t kMostRows = 30000;

  Lines() = default;
  // Reads the source to its end. RuntimeError 9 for more than kMostRows lines.
  explicit Lines(LineSource& source);

  // Adds a row. RuntimeError 9 when there is no place left.
  void Add(String row);
  std::size_t Count() const { return rows_.size(); }
  // Of 1 to Count().
  String& operator[](std::size_t row) { return rows_[row - 1]; }
  // Rows past the last one read as empty.
  StringView At(std::size_t row) const {
    return row - 1 < rows_.size() ? StringView(rows_[row - 1]) : StringView();
  }
  void PrintTo(LineSink& sink) const;

 private:
  friend class RowFilter;
  std::vector<String> rows_;
};

// Goes through the rows of a table and takes out those that are not kept, in linear time. The rows
// not gone through stay.
class RowFilter {
 public:
  explicit RowFilter(Lines& lines) : rows_(lines.rows_) {}
  RowFilter(const RowFilter&) = delete;
  RowFilter& operator=(const RowFilter&) = delete;
  ~RowFilter();

  // The next row; null behind the last one.
  String* Next() { return next_ < rows_.size() ? &rows_[next_++] : nullptr; }
  // Keeps the row that Next gave.
  void Keep();
  // The row that Next gave, for 0, and those behind it. Rows past the last one read as empty.
  StringView Ahead(std::size_t rows) const {
    return next_ - 1 + rows < rows_.size() ? StringView(rows_[next_ - 1 + rows]) : StringView();
  }
  // Takes out rows behind the one that Next gave.
  void Drop(std::size_t rows) { next_ = std::min(next_ + rows, rows_.size()); }

 private:
  std::vector<String>& rows_;
  std::size_t next_ = 0;
  std::size_t kept_ = 0;
};
