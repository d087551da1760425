#include "tools/break_lines.h"

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

void BreakAtWords(String& line, std::size_t position) {
  const std::size_t wholeLength = line.size();
  if (position < 2 || Trim(line).size() < position) return;
  std::size_t p = position;
  while (line.size() >= p) {
    const auto found = [](std::size_t place) { return place == String::npos ? 0 : place + 1; };
    const std::size_t back = found(line.rfind(u' ', p - 1));
    const std::size_t forward = found(line.find(u' ', p - 1));
    const long long backDistance = back == 0 ? -1 : static_cast<long long>(p - back);
    const long long forwardDistance = forward == 0 ? -1 : static_cast<long long>(forward - p);
    const long long endDistance = static_cast<long long>(wholeLength) - static_cast<long long>(p);
    std::size_t place = forward;
    if (back == 0)
      place = forward == 0 || forward >= wholeLength ? wholeLength : forward;
    else if (forward == 0)
      place = backDistance < endDistance ? back : wholeLength;
    else if (backDistance < forwardDistance)
      place = back;
    if (place == wholeLength) {
      p += position + 2;
      continue;
    }
    p = place + position + 1;
    if (IsBlank(StringView(line).substr(place))) continue;
    line.replace(place - 1, 1, kCrLf);
  }
}
