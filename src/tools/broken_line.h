#pragma once
// A line in which spaces give way to line ends one by one, wherever they stand.
//
// Places count from 1, in the line as it stands: a line end takes two of them.

#include "platform/text.h"
#include "tools/index_set.h"

class BrokenLine {
 public:
  // The line must outlive the object and stay as it is.
  explicit BrokenLine(StringView line);

  std::size_t Length() const { return line_.size() + breakCount_; }
  // The place of the nearest space at `place` or in front of it, 0 when there is none. `place` is
  // at most Length(). Time is logarithmic in the length of the line, as in all that follows.
  std::size_t SpaceAtOrBefore(std::size_t place) const;
  std::size_t SpaceAtOrAfter(std::size_t place) const;
  // Whether nothing but spaces stands behind this space.
  bool IsBlankBehind(std::size_t space) const { return IndexAt(space) > lastNonSpace_; }
  // The space becomes a line end.
  void BreakAt(std::size_t space);
  String Text() const;

 private:
  // Of the character in the original line. Both halves of a line end are the space that was there.
  std::size_t IndexAt(std::size_t place) const;
  // 0 for IndexSet::kNone.
  std::size_t PlaceOf(std::size_t index) const;

  StringView line_;
  std::size_t lastNonSpace_;
  std::size_t breakCount_ = 0;
  IndexSet spaces_;
  IndexSet breaks_;
  // The number of breaks in words of 64 characters, as a binary indexed tree.
  std::vector<std::uint32_t> tree_;
};
