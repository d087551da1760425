#pragma once
// A custom tool: a named chain of up to five tools, each with its settings.

#include <array>

#include "tools/catalogue.h"

inline constexpr int kMostCustomTools = 8;
inline constexpr std::size_t kMostSteps = 5;

struct ToolStep {
  // A stored name of the catalogue. Any other, kNoTool among them, does nothing.
  String Name{kNoTool};
  // Of the tool's own kind.
  ToolSettings Settings;
  // The user is asked for the settings when the step runs.
  bool ShowSettings = false;
};

struct CustomTool {
  String Name;
  std::array<ToolStep, kMostSteps> Steps;
};
