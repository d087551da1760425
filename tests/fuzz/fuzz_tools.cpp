// Throws random texts at every tool: fuzz_tools [RUNS [SEED [TOOL]]]

#include <cstdlib>
#include <iostream>
#include <random>

#include "fuzz/tool_properties.h"

namespace {

// A text that both paths read alike: it holds a CR, so that an LF alone is no line end, and it
// isn't blank.
String Readable(String text) {
  if (text.starts_with(u'\uFEFF')) text.erase(0, 1);
  return text + u".\r\n";
}

constexpr StringView kTokens[] = {
    u" ",        u" ",         u"  ",       u"   ",   u"    ",   u"a",          u"b",
    u"A",        u"i ",        u"i'v",      u"é",     u"\u0131", u"\U0001F600", u"\t",
    u"\r\n",     u"\r\n",      u"\r\n\r\n", u"\r",    u"\n",     u">",          u"> ",
    u".",        u"?",         u"!",        u"\"",    u"\u201C", u"\u2019",     u"\u2014",
    u"\u2026",   u"<",         u"<P>",      u"<br>",  u"<BODY>", u"<A HREF=x>", u"</a>",
    u"<SCRIPT>", u"</SCRIPT>", u"&lt;",     u"&amp;", u"&nbsp;", u"www.x",      u"http://Y",
    u"ftp:",     u"1",         u"-",        u"-----", u"*",      u"\u0000x",    u"word word word",
};

String RandomTextOf(std::mt19937& random) {
  const auto below = [&](std::size_t n) {
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(random);
  };
  String text;
  for (std::size_t left = below(below(8) == 0 ? 400 : 40); left > 0; --left)
    text += kTokens[below(std::size(kTokens))];
  return text;
}

}  // namespace

int main(int argc, char** argv) {
  const long runs = argc > 1 ? std::atol(argv[1]) : 100;
  const auto seed = static_cast<unsigned>(argc > 2 ? std::atol(argv[2]) : 1);
  const String wanted = argc > 3 ? FromUtf8(argv[3]) : String();
  std::mt19937 random(seed);
  for (long run = 0; run < runs; ++run) {
    for (const FuzzedTool& tool : FuzzedTools()) {
      if (wanted.empty() || tool.StoredName == wanted)
        CheckTool(tool, Readable(RandomTextOf(random)), static_cast<unsigned>(random()));
    }
  }
  std::cout << runs << " texts for each tool, seed " << seed << ": all well\n";
}
