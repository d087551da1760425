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

// The first place outside double quotes where `matches` holds for the rest of the line.
template <class Match>
std::optional<std::size_t> FindUnquoted(StringView line, Match matches) {
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    // A quote that nothing closes is part of a name.
    if (line[i] == kQuote && (quoted || line.find(kQuote, i + 1) != StringView::npos))
      quoted = !quoted;
    if (!quoted && line[i] == u'/' && matches(line.substr(i))) return i;
  }
  return std::nullopt;
}

bool NeedsQuotes(StringView argument) {
  if (argument.find(kQuote) != StringView::npos || StartsWithAnySwitch(argument)) return false;
  for (std::size_t i = 1; i < argument.size(); ++i) {
    if (argument[i - 1] != u' ' && StartsWithAnySwitch(argument.substr(i))) return true;
  }
  return false;
}

}  // namespace

String JoinArguments(std::span<const String> arguments) {
  String line;
  for (const String& argument : arguments) {
    if (!line.empty()) line += u' ';
    const bool quotes = NeedsQuotes(argument);
    if (quotes) line += kQuote;
    line += argument;
    if (quotes) line += kQuote;
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
  const auto place = FindSwitch(commandLine, name);
  if (!place) return {};
  const StringView behind = commandLine.substr(*place + name.size());
  const StringView value =
      Trim(behind.substr(0, FindUnquoted(behind, StartsWithAnySwitch).value_or(behind.size())));
  if (!value.starts_with(kQuote)) return String(value);
  const StringView quoted = value.substr(1);
  return String(quoted.substr(0, quoted.find(kQuote)));
}

String FileArgument(StringView commandLine) {
  const auto end = FindUnquoted(commandLine, StartsWithAnySwitch);
  StringView file = Trim(commandLine.substr(0, end.value_or(commandLine.size())));
  if (file.size() >= 2 && file.front() == kQuote && file.back() == kQuote)
    file = file.substr(1, file.size() - 2);
  return String(file);
}
