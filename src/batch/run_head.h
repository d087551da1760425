#pragma once
// What identifies a batch run to a person: when it began, and its name.

#include <ctime>

#include "text/text.h"

struct RunHead {
  String Date;  // mm-dd-yyyy
  String Time;  // hh:mm:ss
  // Trimmed; empty for a run without a name.
  String Name;
};

// A shorter name counts as none.
inline constexpr std::size_t kShortestRunName = 4;

// The head of a run that begins at this time, in local time. RuntimeError 5 for a name that could
// not be read back: one with a line break or with a token of the history in it.
RunHead MakeRunHead(std::time_t now, StringView name);
// DATE at TIME, or DATE at TIME (NAME).
String RunLabel(const RunHead& head);
