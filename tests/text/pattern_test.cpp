#include "text/pattern.h"

#include <chrono>
#include <gtest/gtest.h>

namespace {

TEST(Pattern, Fits) {
  const struct {
    String Name, Patterns;
    bool Fits;
  } cases[]{
      {u"a.txt", u"*.txt", true},
      {u"A.TXT", u"*.txt;*.html", true},
      {u"a.html", u"*.txt; *.html ;", true},
      {u"a.htm", u"*.txt;*.html", false},
      {u"name", u"*.*", true},
      {u"name", u"*.", false},
      {u"name", u"*", true},
      {u"name", u"n?me", true},
      {u"nme", u"n?me", false},
      {u"a.txt.txt", u"*.txt", true},
      {u"a.txt.bak", u"*.txt", false},
      {u"abcabd", u"*abd", true},
      {u"ab", u"a*b*", true},
      {u"", u"*", true},
      {u"", u"?", false},
      {u"name", u"", false},
      {u"name", u";;", false},
      {u"[a].txt", u"[a].t*", true},
      {u"\u00C9t\u00E9.TXT", u"\u00E9T\u00C9.txt", true},
  };
  for (const auto& each : cases)
    EXPECT_EQ(FitsPattern(each.Name, each.Patterns), each.Fits)
        << ToUtf8(each.Name) << " " << ToUtf8(each.Patterns);
}

TEST(Pattern, ManyStarsTakeNoTime) {
  String pattern;
  for (int star = 0; star < 60; ++star) pattern += u"a*";
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(FitsPattern(String(250, u'a') + u"b", pattern + u"c"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

}  // namespace
