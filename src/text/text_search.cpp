#include <algorithm>
#include <vector>

#include "text/ascii_runs.h"
#include "text/text.h"

namespace {

// Knuth, Morris and Pratt: never looks at a character of the text twice, for the price of a table
// as long as `what`.
std::size_t FindByTable(StringView text, StringView what, std::size_t from) {
  std::vector<std::size_t> borders(what.size(), 0);
  for (std::size_t i = 1, border = 0; i < what.size(); ++i) {
    while (border > 0 && what[i] != what[border]) border = borders[border - 1];
    if (what[i] == what[border]) ++border;
    borders[i] = border;
  }
  for (std::size_t i = from, matched = 0; i < text.size(); ++i) {
    while (matched > 0 && text[i] != what[matched]) matched = borders[matched - 1];
    if (text[i] == what[matched]) ++matched;
    if (matched == what.size()) return i + 1 - matched;
  }
  return StringView::npos;
}

// What looking for the next candidate costs, in characters compared.
constexpr std::size_t kCandidate = 8;

// Looks for the first two characters and compares from there; goes over to the table when the
// candidates have cost more than the way covered is worth.
std::size_t Find(StringView text, StringView what, std::size_t from) {
  const char16_t* const begin = text.data();
  const char16_t* const last = begin + (text.size() - what.size());
  std::size_t cost = 0;
  const auto candidate = [&](const char16_t* p) {
    return what.size() == 1 ? FindUnit(p, last + 1, what[0])
                            : FindTwoUnits(p, last + 1, what[0], what[1]);
  };
  for (const char16_t* p = begin + from; (p = candidate(p)) <= last; ++p) {
    const auto difference = std::mismatch(what.begin() + 1, what.end(), p + 1).first;
    if (difference == what.end()) return static_cast<std::size_t>(p - begin);
    cost += kCandidate + static_cast<std::size_t>(difference - what.begin());
    const auto at = static_cast<std::size_t>(p - begin);
    if (cost > 4 * (at - from) + 1000) return FindByTable(text, what, at + 1);
  }
  return StringView::npos;
}

}  // namespace

std::size_t InStr(StringView text, StringView what, std::size_t start) {
  if (start == 0 || start > text.size()) return 0;
  if (what.empty()) return start;
  if (what.size() > text.size() - (start - 1)) return 0;
  const std::size_t place = Find(text, what, start - 1);
  return place == StringView::npos ? 0 : place + 1;
}
