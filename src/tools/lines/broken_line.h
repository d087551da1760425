#pragma once
// A line in which spaces give way to line ends one by one, wherever they stand.
//
// Places count from 1, in the line as it stands: a line end takes two of them. Searching and
// breaking take logarithmic time in the length of the line.

#include "tools/lines/index_set.h"
#include "tools/lines/line_io.h"

class BrokenLine {
 public:
  // A space by its place, 0 for none, and by its index in the line as it was.
  struct Space {
    std::size_t Place = 0;
    std::size_t Index = 0;
  };
  struct Spaces {
    Space Back;
    Space Forward;
  };

  // Begins with another line, which must stay as it is until the next one. The memory stays.
  void Start(StringView line);

  std::size_t Length() const { return line_.size() + breakCount_; }
  // The nearest space at `place` or in front of it, and at `place` or behind it. `place` is 0 to
  // Length().
  Spaces SpacesRound(std::size_t place) const;
  // Whether nothing but spaces stands behind this space.
  bool IsBlankBehind(Space space) const { return space.Index > lastNonSpace_; }
  // The space becomes a line end.
  void BreakAt(Space space);
  void PrintTo(LineSink& out) const;

 private:
  // Of the character in the line as it was. Both halves of a line end are the space that was there.
  std::size_t IndexAt(std::size_t place) const;
  // The space at IndexSet::kNone is none.
  Space At(std::size_t index) const;

  StringView line_;
  std::size_t lastNonSpace_ = 0;
  std::size_t breakCount_ = 0;
  IndexSet spaces_;
  IndexSet breaks_;
  // The number of breaks in words of 64 characters, as a binary indexed tree.
  std::vector<std::uint32_t> tree_;
};
