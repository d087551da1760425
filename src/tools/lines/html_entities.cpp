#include "tools/lines/html_entities.h"

#include <algorithm>

namespace {

struct Entity {
  StringView Name;  // in upper case
  StringView Text;
};

constexpr Entity kEntities[] = {
    {u"&QUOT;", u"\""},
    {u"&NBSP;", u" "},
    {u"&AMP;", u"&"},
    {u"&LT;", u"<"},
    {u"&GT;", u">"},
    {u"&#169;", u"Copyright"},
    {u"&#174;", u"Registered"},
    {u"&#153;", u"Trademark"},
    {u"&#188;", u"1/4"},
    {u"&#189;", u"1/2"},
    {u"&#190;", u"3/4"},
};

// The entity that a text ends in, in any case; null for none.
const Entity* EntityAtEnd(StringView text) {
  for (const Entity& entity : kEntities) {
    if (text.size() < entity.Name.size()) continue;
    const StringView end = text.substr(text.size() - entity.Name.size());
    if (std::equal(end.begin(), end.end(), entity.Name.begin(),
                   [](char16_t c, char16_t upper) { return UCase(c) == upper; })) {
      return &entity;
    }
  }
  return nullptr;
}

}  // namespace

bool DecodeEntities(String& text) {
  const std::size_t first = text.find(u';');
  if (first == String::npos || text.find(u'&') == String::npos) return false;
  String result;
  result.reserve(text.size());
  bool any = false;
  for (const char16_t c : text) {
    result += c;
    if (c != u';') continue;
    // An "&" that was put in may begin the next one.
    if (const Entity* entity = EntityAtEnd(result)) {
      result.resize(result.size() - entity->Name.size());
      result += entity->Text;
      any = true;
    }
  }
  if (any) text = std::move(result);
  return any;
}
