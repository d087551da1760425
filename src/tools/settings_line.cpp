#include "tools/settings_line.h"

#include "text/text.h"

namespace {

// A text of several lines in one.
String Quoted(StringView text) {
  String line = u"\"";
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == kCr && i + 1 < text.size() && text[i + 1] == kLf) continue;
    line += text[i] == kCr || text[i] == kLf ? u'\u21B5' : text[i] < u' ' ? u' ' : text[i];
  }
  return line + u'"';
}

struct Flag {
  bool On;
  StringView Text;
};

String WithFlags(String line, std::initializer_list<Flag> flags) {
  for (const Flag& flag : flags)
    if (flag.On) line.append(u", ").append(flag.Text);
  return line;
}

String LineOf(std::monostate) { return {}; }

String LineOf(const AddSettings& add) {
  return WithFlags(u"position " + add.Position, {{add.AtWords, u"to the nearest word"}});
}

String LineOf(const SearchSettings& search) {
  return WithFlags(Quoted(search.SearchFor) + u" -> " + Quoted(search.ReplaceWith),
                   {{search.ByCodes, u"ASCII codes"},
                    {search.WholeWord, u"whole words"},
                    {search.MatchCase, u"match case"}});
}

String LineOf(const HtmlSettings& html) {
  return WithFlags(u"header " + html.HeaderFile + u", footer " + html.FooterFile,
                   {{html.BreakLines, u"<BR> for every line"}, {html.NoTitle, u"no title"}});
}

String LineOf(const RunSettings& run) {
  return run.Arguments.empty() ? run.Program : run.Program + u' ' + run.Arguments;
}

}  // namespace

String SettingsLine(const ToolSettings& settings) {
  return std::visit([](const auto& values) { return LineOf(values); }, settings);
}
