#pragma once
// A custom tool: a named chain of up to five tools, each with its settings.

#include <array>

#include "text/text.h"

inline constexpr int kMostCustomTools = 8;
inline constexpr int kMostSteps = 5;

// Check values and ShowSettings are 0 or 1. A step whose ShowSettings is 1 asks the user when it
// runs.
struct AddSettings {
  String Position;
  int Nearest = 0;
  int ShowSettings = 0;
};

struct SearchReplaceSettings {
  String SearchText;
  String ReplaceText;
  int CodeMode = 0;
  int WholeWord = 0;
  int MatchCase = 0;
  int ShowSettings = 0;
};

struct HtmlSettings {
  String HeaderFile;
  String FooterFile;
  int UseBr = 0;
  int NoTitle = 0;
  int ShowSettings = 0;
};

struct RunSettings {
  String Program;
  String Arguments;
};

// Rows 1 to kMostSteps are steps. Row 0 takes the settings of a step that is none.
template <typename Row>
using StepTable = std::array<Row, kMostSteps + 1>;

struct CustomTool {
  String Name;
  StepTable<String> StepNames;
  StepTable<AddSettings> StepAdd;
  StepTable<SearchReplaceSettings> StepSearch;
  StepTable<HtmlSettings> StepHtml;
  StepTable<RunSettings> StepRun;
};
