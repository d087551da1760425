#pragma once
// The command line: one string with a file name in front and switches behind.

#include <functional>
#include <optional>
#include <vector>

#include "core/command_words.h"
#include "text/runtime_error.h"

// A command line that can't be carried out; `Title` is that of its message, empty for the usual.
struct RefusedCommandLine : RuntimeError {
  RefusedCommandLine(StringView title, StringView text)
      : RuntimeError(kInvalidCall, ToUtf8(text)), Title(title) {}
  String Title;
};

struct JoinedLine {
  String Text;
  // Files named behind the first one, which is the only one that is opened.
  std::vector<String> NotOpened;
  // Options that stood beside the switches.
  std::vector<Word> Options;
};

// The arguments as one line, joined by blanks. `exists` tells whether a file or a folder has this
// name; such a name reaches that file whatever it holds, and so does one that begins or ends in a
// blank. RefusedCommandLine where the line can't tell the name from what stands behind it.
JoinedLine JoinArguments(std::vector<String> arguments,
                         const std::function<bool(const String&)>& exists);

// Where a switch begins, in any case, outside double quotes.
std::optional<std::size_t> FindSwitch(StringView commandLine, Word name);
bool HasSwitch(StringView commandLine, Word name);

// The value of a switch as its row has it, trimmed, without the double quotes round it. Empty where
// the switch is missing. One word in double quotes may hold blanks.
String SwitchValue(StringView commandLine, Word name);

// The text in front of the first switch, trimmed, without the double quotes round it.
String FileArgument(StringView commandLine);

Job JobOf(StringView commandLine);
// RefusedCommandLine when switches stand together that can't, or one without another.
void TestCombinations(StringView commandLine);
