#include "tools/lines.h"

#include "platform/runtime_error.h"

Lines::Lines(LineSource& source) {
  while (!source.AtEnd()) Add(source.ReadLine());
}

void Lines::Add(StringView row) {
  if (rows_.size() == kMostRows) {
    throw RuntimeError(kSubscriptOutOfRange,
                       "The text has more than 30000 lines and was not changed.");
  }
  rows_.emplace_back(row);
}

void Lines::PrintTo(LineSink& sink, std::size_t first, std::size_t last) const {
  for (std::size_t row = first; row <= last; ++row) sink.Print(rows_[row - 1]);
}
