#include "core/command_line.h"

#include <algorithm>

namespace {

constexpr char16_t kQuote = u'"';
constexpr StringView kError = u"Error";

bool StartsWithSwitch(StringView text, StringView name) {
  return text.size() >= name.size() && UCase(text.substr(0, name.size())) == name;
}

bool IsSwitchAtStart(StringView text, const CommandWord& word) {
  return word.IsSwitch() && StartsWithSwitch(text, word.Name);
}

bool StartsWithAnySwitch(StringView text) {
  const auto words = CommandWords();
  return std::any_of(words.begin(), words.end(),
                     [text](const CommandWord& word) { return IsSwitchAtStart(text, word); });
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

String Quoted(StringView text) { return kQuote + String(text) + kQuote; }

// What stands behind a switch, up to the next one, trimmed.
StringView TextBehind(StringView commandLine, Word name) {
  const auto place = FindSwitch(commandLine, name);
  if (!place) return {};
  const StringView behind = commandLine.substr(*place + RowOf(name).Name.size());
  return Trim(behind.substr(0, FindUnquoted(behind, StartsWithAnySwitch).value_or(behind.size())));
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

using Exists = std::function<bool(const String&)>;

// Whether an argument has to be taken as it stands.
bool IsName(const String& argument, const Exists& exists) {
  if (IsBlank(argument)) return false;
  if (HoldsSwitchLikeFolder(argument) || exists(argument)) return true;
  const bool holdsSwitch = FindUnquoted(argument, StartsWithAnySwitch).has_value();
  return !holdsSwitch && Trim(argument) != argument;
}

// A name so that it is read as it stands in front of `behind`.
String NameInFrontOf(const String& name, const String& behind) {
  for (const String& form : {name, Quoted(name)}) {
    const String line = form + behind;
    // What is read in front must be all of it, and no more of the line.
    if (FileArgument(line) != name) continue;
    const auto end = FindUnquoted(line, StartsWithAnySwitch);
    const auto wanted = FindUnquoted(behind, StartsWithAnySwitch);
    if (end == (wanted ? std::optional(*wanted + form.size()) : std::nullopt)) return line;
  }
  throw RefusedCommandLine(kError, u"The file name " + name +
                                       u" cannot be told from switches: give the file another "
                                       u"name, or another folder");
}

// A switch with a folder behind it, or a folder alone, so that the folder is read as it stands.
String WithFolderTaken(const String& argument, const Exists& exists) {
  for (const CommandWord& word : CommandWords()) {
    if (word.Value != ValueKind::Folder || !IsSwitchAtStart(argument, word)) continue;
    const String folder = argument.substr(word.Name.size());
    if (!IsName(folder, exists) || SwitchValue(argument, word.Id) == folder) return argument;
    const String quoted = argument.substr(0, word.Name.size()) + Quoted(folder);
    if (SwitchValue(quoted, word.Id) == folder) return quoted;
    throw RefusedCommandLine(kError, u"The folder name " + folder +
                                         u" cannot be told from switches: give the folder another "
                                         u"name");
  }
  const bool alone = !StartsWithAnySwitch(argument);
  return alone && HoldsSwitchLikeFolder(argument) ? Quoted(argument) : argument;
}

String Joined(std::vector<String>::const_iterator from, std::vector<String>::const_iterator to) {
  String line;
  for (; from != to; ++from) {
    if (!line.empty()) line += u' ';
    line += *from;
  }
  return line;
}

}  // namespace

JoinedLine JoinArguments(std::vector<String> arguments, const Exists& exists) {
  JoinedLine line;
  std::erase_if(arguments, [&line](const String& argument) {
    const CommandWord* option = FindOption(argument);
    if (option == nullptr || option->With == Job::Option) return false;
    line.Options.push_back(option->Id);
    return true;
  });
  const auto behind = std::find_if(arguments.begin(), arguments.end(),
                                   [](const String& word) { return StartsWithAnySwitch(word); });
  std::transform(behind, arguments.end(), behind,
                 [&exists](const String& argument) { return WithFolderTaken(argument, exists); });
  String switches = Joined(behind, arguments.end());
  if (!switches.empty() && behind != arguments.begin()) switches.insert(0, u" ");

  String file = Joined(arguments.begin(), behind);
  const bool eachExists = std::all_of(arguments.begin(), behind, exists);
  if (behind - arguments.begin() > 1 && eachExists && !exists(file)) {
    line.NotOpened.assign(arguments.begin() + 1, behind);
    file = arguments.front();
  }
  line.Text = IsName(file, exists) ? NameInFrontOf(file, switches) : file + switches;
  return line;
}

std::optional<std::size_t> FindSwitch(StringView commandLine, Word name) {
  const CommandWord& word = RowOf(name);
  return FindUnquoted(commandLine,
                      [&word](StringView rest) { return IsSwitchAtStart(rest, word); });
}

bool HasSwitch(StringView commandLine, Word name) {
  return FindSwitch(commandLine, name).has_value();
}

String SwitchValue(StringView commandLine, Word name) {
  StringView value = TextBehind(commandLine, name);
  if (RowOf(name).Value == ValueKind::OneWord && !value.empty())
    value = value.substr(0, value.find(u' ', BehindQuoted(value, 0)));
  return String(WithoutQuotes(value));
}

String FileArgument(StringView commandLine) {
  const auto end = FindUnquoted(commandLine, StartsWithAnySwitch);
  return String(WithoutQuotes(Trim(commandLine.substr(0, end.value_or(commandLine.size())))));
}

Job JobOf(StringView commandLine) {
  constexpr Word kJobs[] = {Word::EmailStd, Word::EmailPoem, Word::Mff, Word::Auto};
  for (const Word word : kJobs) {
    if (HasSwitch(commandLine, word)) return RowOf(word).With;
  }
  return Job::Window;
}

void TestCombinations(StringView commandLine) {
  for (const Combination& refused : RefusedCombinations()) {
    if (HasSwitch(commandLine, refused.Present) &&
        HasSwitch(commandLine, refused.Other) == refused.Together)
      throw RefusedCommandLine(kError, refused.Refusal);
  }
}
