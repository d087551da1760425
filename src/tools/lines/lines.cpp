#include "tools/lines/lines.h"

#include "text/runtime_error.h"

namespace {

[[noreturn]] void ThrowTooMany() {
  throw RuntimeError(kSubscriptOutOfRange,
                     "The text has more than 30000 lines, which this tool cannot take.");
}

}  // namespace

StringView BoundedSource::ReadLine() {
  if (count_ == Lines::kMostRows) ThrowTooMany();
  ++count_;
  return source_.ReadLine();
}

Lines::Lines(LineSource& source) {
  while (!source.AtEnd()) Add(source.TakeLine());
  source.Release();
}

void Lines::Add(String row) {
  if (rows_.size() == kMostRows) ThrowTooMany();
  rows_.push_back(std::move(row));
}

void Lines::PrintTo(LineSink& sink) const {
  for (const String& row : rows_) sink.Print(row);
}

RowFilter::~RowFilter() {
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(kept_),
              rows_.begin() + static_cast<std::ptrdiff_t>(next_));
}

void RowFilter::Keep() {
  if (kept_ + 1 != next_) rows_[kept_] = std::move(rows_[next_ - 1]);
  ++kept_;
}
