#include "platform/window/natural_order.h"

#include <algorithm>
#include <locale>
#include <stdexcept>

namespace {

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

std::locale UserLocale() {
  try {
    return std::locale("");
  } catch (const std::runtime_error&) {
    return std::locale::classic();
  }
}

// Bytes whose order is the order of the names: stretches of text, each ended by a zero, and numbers
// without leading zeros, the count of their digits in front.
std::string KeyOf(StringView name, const std::collate<char>& collation) {
  std::string key;
  while (!name.empty()) {
    const auto digit = std::find_if(name.begin(), name.end(), IsDigit);
    const std::string text = ToUtf8(LCase(StringView(name.begin(), digit)));
    key += collation.transform(text.data(), text.data() + text.size()) + '\0';
    auto end = std::find_if_not(digit, name.end(), IsDigit);
    const auto number = std::find_if(digit, end, [](char16_t c) { return c != u'0'; });
    // No file name is longer than this.
    key += static_cast<char>(std::min<std::ptrdiff_t>(end - number, 255));
    key.append(number, end);
    name = StringView(end, name.end());
  }
  return key;
}

}  // namespace

void SortNaturally(std::vector<String>& names) {
  const std::locale locale = UserLocale();
  const auto& collation = std::use_facet<std::collate<char>>(locale);
  std::vector<std::pair<std::string, String>> keyed;
  keyed.reserve(names.size());
  for (String& name : names) {
    std::string key = KeyOf(name, collation);
    keyed.emplace_back(std::move(key), std::move(name));
  }
  std::sort(keyed.begin(), keyed.end());
  for (std::size_t i = 0; i < names.size(); ++i) names[i] = std::move(keyed[i].second);
}
