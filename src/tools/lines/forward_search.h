#pragma once
// Searches that are asked again and again from places further on.

#include <cstddef>

#include "text/text.h"

// Where the next character of a kind is. What was found is remembered, so that asking at every
// place of a text from left to right takes linear time altogether; going back costs a new search.
// The kind of a character must not change while the text is searched.
template <typename Kind>
class ForwardSearch {
 public:
  // The text must outlive the search.
  ForwardSearch(StringView text, Kind isOfKind) : text_(text), isOfKind_(isOfKind) {}

  // The index of the first at or after index `from`, or npos.
  std::size_t Find(std::size_t from) {
    if (asked_ && from_ <= from && (found_ == StringView::npos || from <= found_)) return found_;
    asked_ = true;
    from_ = from;
    while (from < text_.size() && !isOfKind_(text_[from])) ++from;
    found_ = from < text_.size() ? from : StringView::npos;
    return found_;
  }

 private:
  StringView text_;
  Kind isOfKind_;
  bool asked_ = false;
  std::size_t from_ = 0;
  std::size_t found_ = 0;
};
