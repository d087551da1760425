#include "tools/lines/capital_letters.h"

#include <gtest/gtest.h>

#include "tools/random_text.h"

namespace {

// The rules step by step, places counted from 1.
class SlowSentences {
 public:
  String Change(String line) {
    for (std::size_t from = 1, place; (place = Pronoun(line, from)) != 0; from = place + 1)
      line[place - 1] = u'I';
    if (first_ || flag_) {
      for (std::size_t i = 1; !line.empty() && i != line.size(); ++i) {
        if (Raise(line, i)) break;
      }
      flag_ = false;
    }
    first_ = false;
    const StringView text = Trim(line);
    if (text.empty() || text == u"\n") flag_ = true;
    bool restarted[3] = {true, false, false};
    std::size_t last = 0;
    while (true) {
      std::size_t from = last + 1;
      std::size_t e = 0;
      for (int mark = 0; mark < 3 && e == 0; ++mark) {
        if (!restarted[mark]) from = 1;
        restarted[mark] = true;
        e = InStr(line, StringView(u".?!").substr(static_cast<std::size_t>(mark), 1), from);
      }
      if (e == 0) return line;
      last = e;
      const StringView stripped = RTrim(line);
      if (e == stripped.size() || stripped.back() == u'"') flag_ = true;
      for (std::size_t i = e + 1; i <= line.size() && !Raise(line, i); ++i) {
      }
    }
  }

 private:
  static std::size_t Pronoun(const String& line, std::size_t from) {
    const std::size_t have = InStr(line, u"i'v", from);
    return have != 0 ? have : InStr(line, u"i ", from);
  }
  static bool Raise(String& line, std::size_t place) {
    char16_t& c = line[place - 1];
    if (UCase(c) < u'A' || UCase(c) > u'Z') return false;
    c = UCase(c);
    return true;
  }

  bool first_ = true;
  bool flag_ = false;
};

TEST(SentenceCapitals, AgreeWithTheRuleStepByStep) {
  constexpr StringView kTokens[] = {u".",  u"?",    u"!", u" ",  u"\"", u"a", u"i",
                                    u"i ", u"i've", u"1", u"\n", u"é",  u"ſ", u"  "};
  RandomText random(2);
  for (int text = 0; text < 5000; ++text) {
    SentenceCapitals fast;
    SlowSentences slow;
    for (int i = 0; i < 6; ++i) {
      const String line = random.Of(kTokens, 14);
      String changed = line;
      fast.Change(changed);
      ASSERT_EQ(changed, slow.Change(line)) << ToUtf8(line) << ", line " << i;
    }
  }
}

}  // namespace
