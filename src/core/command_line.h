#pragma once
// The command line: one string with a file name in front and switches behind.

#include <optional>
#include <span>
#include <vector>

#include "text/text.h"

// The arguments joined by blanks. A path that holds what looks like a switch in the middle, such as
// a folder "eof", is put into double quotes.
String JoinArguments(std::span<const String> arguments);

// Where a switch begins, such as u"/EOF" in any case, outside double quotes.
std::optional<std::size_t> FindSwitch(StringView commandLine, StringView name);
bool HasSwitch(StringView commandLine, StringView name);

// What stands behind a switch such as u"/AUTO:", up to the next switch, trimmed, without the double
// quotes round it. Empty where the switch is missing.
String SwitchValue(StringView commandLine, StringView name);

// The first word of that; a word in double quotes may hold blanks.
String SwitchWord(StringView commandLine, StringView name);

// The text in front of the first switch, trimmed, without the double quotes round it.
String FileArgument(StringView commandLine);
