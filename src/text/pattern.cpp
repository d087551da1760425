#include "text/pattern.h"

#include <algorithm>

namespace {

// "*" takes as little as it can at first, and one character more each time the rest does not fit.
// Only the last "*" is ever tried again, since what stands in front of it fits already.
bool Fits(StringView name, StringView pattern) {
  std::size_t n = 0;
  std::size_t p = 0;
  std::size_t star = StringView::npos;
  std::size_t taken = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == u'*') {
      star = p++;
      taken = n;
    } else if (p < pattern.size() && (pattern[p] == u'?' || pattern[p] == name[n])) {
      ++p;
      ++n;
    } else if (star != StringView::npos) {
      p = star + 1;
      n = ++taken;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of(u'*', p) == StringView::npos;
}

}  // namespace

bool FitsPattern(StringView name, StringView patterns) {
  const String lowerName = LCase(name);
  while (!patterns.empty()) {
    const StringView pattern = Trim(patterns.substr(0, patterns.find(u';')));
    patterns.remove_prefix(std::min(patterns.find(u';'), patterns.size() - 1) + 1);
    if (pattern == u"*.*" || (!pattern.empty() && Fits(lowerName, LCase(pattern)))) return true;
  }
  return false;
}
