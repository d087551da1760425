#include "tools/lines/break_lines.h"

namespace {

// The places among which a break is chosen: the nearest spaces on both sides of the place where the
// line is full, and its end.
struct Candidates {
  std::size_t Full;
  BrokenLine::Space Back;
  BrokenLine::Space Forward;
  std::size_t End;
};

// The space to break at; none for the end of the line.
BrokenLine::Space Choose(const Candidates& at) {
  const BrokenLine::Space none;
  BrokenLine::Space chosen = at.Forward;
  if (at.Back.Place == 0) {
    if (at.Forward.Place >= at.End) return none;
  } else {
    const std::size_t backDistance = at.Full - at.Back.Place;
    if (at.Forward.Place == 0) {
      if (at.Full + backDistance >= at.End) return none;
      chosen = at.Back;
    } else if (backDistance < at.Forward.Place - at.Full) {
      chosen = at.Back;
    }
  }
  return chosen.Place == at.End ? none : chosen;
}

}  // namespace

void BreakExactly(StringView line, std::size_t position, LineSink& out) {
  while (position >= 2 && line.size() >= position) {
    std::size_t length = position - 1;
    if (IsHighSurrogate(line[length - 1]) && IsLowSurrogate(line[length]))
      length = length > 1 ? length - 1 : length + 1;
    if (length == line.size()) break;
    out.Print(line.substr(0, length));
    line.remove_prefix(length);
  }
  out.Print(line);
}

void WordBreaker::Break(StringView line, std::size_t position, LineSink& out) {
  const std::size_t text = Trim(line).size();
  if (text == 0 || text < position) return out.Print(line);
  broken_.Start(line);
  // The end competes from where it stood before the first break.
  const std::size_t end = line.size();
  for (std::size_t full = position; full <= broken_.Length();) {
    const auto [back, forward] = broken_.SpacesRound(full);
    const BrokenLine::Space space = Choose({full, back, forward, end});
    if (space.Place == 0) {
      full += position + 2;
      continue;
    }
    full = space.Place + position + 1;
    if (!broken_.IsBlankBehind(space)) broken_.BreakAt(space);
  }
  broken_.PrintTo(out);
}
