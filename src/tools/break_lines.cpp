#include "tools/break_lines.h"

#include "tools/broken_line.h"

void BreakExactly(String& line, std::size_t position) {
  if (position < 2 || line.size() < position) return;
  String result;
  StringView rest = line;
  while (rest.size() >= position) {
    std::size_t length = position - 1;
    if (IsHighSurrogate(rest[length - 1]) && IsLowSurrogate(rest[length]))
      length = length > 1 ? length - 1 : length + 1;
    if (length == rest.size()) break;
    result.append(rest.substr(0, length)).append(kCrLf);
    rest.remove_prefix(length);
  }
  result += rest;
  line = std::move(result);
}

namespace {

// The places among which a break is chosen: the nearest spaces on both sides of the place where the
// line is full (0: none), and its end.
struct Candidates {
  std::size_t Full;
  std::size_t Back;
  std::size_t Forward;
  std::size_t End;
};

std::size_t Choose(const Candidates& at) {
  const bool spaceAhead = at.Forward != 0;
  if (at.Back == 0) return spaceAhead && at.Forward < at.End ? at.Forward : at.End;
  const std::size_t backDistance = at.Full - at.Back;
  if (!spaceAhead) return at.Full + backDistance < at.End ? at.Back : at.End;
  return backDistance < at.Forward - at.Full ? at.Back : at.Forward;
}

}  // namespace

void BreakAtWords(String& line, std::size_t position) {
  if (position < 2 || Trim(line).size() < position) return;
  // The end competes from where it stood before the first break.
  const std::size_t end = line.size();
  BrokenLine broken(line);
  for (std::size_t full = position; full <= broken.Length();) {
    const std::size_t place =
        Choose({full, broken.SpaceAtOrBefore(full), broken.SpaceAtOrAfter(full), end});
    if (place == end) {
      full += position + 2;
      continue;
    }
    full = place + position + 1;
    if (!broken.IsBlankBehind(place)) broken.BreakAt(place);
  }
  line = broken.Text();
}
