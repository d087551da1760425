// Throws random texts at every tool: fuzz_tools [RUNS [SEED [TOOL]]]

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <iostream>

#include "fuzz/tool_properties.h"
#include "tools/random_text.h"

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

// A tool that is added is sent texts, too.
bool AllAreThere() {
  bool all = true;
  for (const Tool& tool : Catalogue()) {
    const auto fuzzed = FuzzedTools();
    if (tool.Caption.empty() || std::any_of(fuzzed.begin(), fuzzed.end(), [&](const auto& row) {
          return row.StoredName == tool.StoredName;
        }))
      continue;
    std::cerr << ToUtf8(tool.StoredName) << " is sent no texts\n";
    all = false;
  }
  return all;
}

}  // namespace

int main(int argc, char** argv) {
  const long runs = argc > 1 ? std::atol(argv[1]) : 100;
  const auto seed = static_cast<unsigned>(argc > 2 ? std::atol(argv[2]) : 1);
  const String wanted = argc > 3 ? FromUtf8(argv[3]) : String();
  if (!AllAreThere()) return 1;
  RandomText random(seed);
  for (long run = 0; run < runs; ++run) {
    for (const FuzzedTool& tool : FuzzedTools()) {
      if (!wanted.empty() && tool.StoredName != wanted) continue;
      const String text = random.Of(kTokens, random.Number(7) == 0 ? 400 : 40);
      CheckTool(tool, Readable(text), static_cast<unsigned>(random.Number(UINT_MAX)));
    }
  }
  std::cout << runs << " texts for each tool, seed " << seed << ": all well\n";
}
