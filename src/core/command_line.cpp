#include "core/command_line.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<StringView, 12> kSwitches{
    u"/NOSPLASH",
    u"/EOF",
    u"/EMAILSTD",
    u"/EMAILPOEM",
    u"/MFF",
    u"/AUTO:",
    u"/SAVETOLOCATION:",
    u"/SAVEASHTMLFILE",
    u"/NOHTMLHEADERFOOTER",
    u"/ADDPREFIX:",
    u"/USEALL:",
    u"/VIEWHTML",
};

constexpr char16_t kQuote = u'"';

bool StartsWithSwitch(StringView text, StringView name) {
  return text.size() >= name.size() && UCase(text.substr(0, name.size())) == name;
}

bool StartsWithAnySwitch(StringView text) {
  return std::any_of(kSwitches.begin(), kSwitches.end(),
                     [text](StringView name) { return StartsWithSwitch(text, name); });
}

// Behind the closing quote of what is in quotes at `i`; `i` itself where nothing is. Quotes stand
// round a word or a value; one within a word, or that nothing closes, is part of a name.
std::size_t BehindQuoted(StringView line, std::size_t i) {
  if (line[i] != kQuote || (i > 0 && line[i - 1] != u' ' && line[i - 1] != u':')) return i;
  const std::size_t end = line.find(kQuote, i + 1);
  return end == StringView::npos ? i : end + 1;
}

// The first place outside double quotes where `matches` holds for the rest of the line.
template <class Match>
std::optional<std::size_t> FindUnquoted(StringView line, Match matches) {
  for (std::size_t i = 0; i < line.size(); ++i) {
    i = BehindQuoted(line, i);
    if (i < line.size() && line[i] == u'/' && matches(line.substr(i))) return i;
  }
  return std::nullopt;
}

StringView WithoutQuotes(StringView text) {
  const bool inQuotes = text.size() >= 2 && text.front() == kQuote && text.back() == kQuote;
  return inQuotes ? text.substr(1, text.size() - 2) : text;
}

// Where the path begins in an argument that is one or that gives one to a switch.
std::size_t PathStart(StringView argument) {
  for (const StringView name : {StringView(u"/SAVETOLOCATION:"), StringView(u"/USEALL:")}) {
    if (StartsWithSwitch(argument, name)) return name.size();
  }
  return StartsWithAnySwitch(argument) ? argument.size() : 0;
}

// Whether a folder on the path looks like a switch. Behind a blank it is one.
bool HoldsSwitchLikeFolder(StringView path) {
  if (path.find(kQuote) != StringView::npos) return false;
  bool found = false;
  for (std::size_t i = 0; i < path.size(); ++i) {
    if (!StartsWithAnySwitch(path.substr(i))) continue;
    if (i > 0 && path[i - 1] == u' ') return false;
    found = true;
  }
  return found;
}

// What stands behind a switch, up to the next one, trimmed.
StringView ValueOf(StringView commandLine, StringView name) {
  const auto place = FindSwitch(commandLine, name);
  if (!place) return {};
  const StringView behind = commandLine.substr(*place + name.size());
  return Trim(behind.substr(0, FindUnquoted(behind, StartsWithAnySwitch).value_or(behind.size())));
}

}  // namespace

String JoinArguments(std::span<const String> arguments) {
  String line;
  for (const String& argument : arguments) {
    if (!line.empty()) line += u' ';
    const std::size_t start = PathStart(argument);
    const StringView path = StringView(argument).substr(start);
    if (HoldsSwitchLikeFolder(path))
      line += argument.substr(0, start) + kQuote + String(path) + kQuote;
    else
      line += argument;
  }
  return line;
}

std::optional<std::size_t> FindSwitch(StringView commandLine, StringView name) {
  return FindUnquoted(commandLine,
                      [name](StringView rest) { return StartsWithSwitch(rest, name); });
}

bool HasSwitch(StringView commandLine, StringView name) {
  return FindSwitch(commandLine, name).has_value();
}

String SwitchValue(StringView commandLine, StringView name) {
  return String(WithoutQuotes(ValueOf(commandLine, name)));
}

String SwitchWord(StringView commandLine, StringView name) {
  const StringView value = ValueOf(commandLine, name);
  if (value.empty()) return {};
  const std::size_t end = value.find(u' ', BehindQuoted(value, 0));
  return String(WithoutQuotes(value.substr(0, end)));
}

String FileArgument(StringView commandLine) {
  const auto end = FindUnquoted(commandLine, StartsWithAnySwitch);
  return String(WithoutQuotes(Trim(commandLine.substr(0, end.value_or(commandLine.size())))));
}
