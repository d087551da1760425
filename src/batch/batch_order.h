#pragma once
// What a batch is to do: the wizard and the command line fill one.

#include <array>
#include <optional>
#include <vector>

#include "tools/catalogue.h"

// In front of the name of a custom tool, among the tools of a pass.
inline constexpr StringView kCustomToolPrefix = u"Custom Tool: ";

struct BatchPass {
  // A stored name of the catalogue, or a custom tool's behind kCustomToolPrefix. Any other text,
  // kNoTool among them, does nothing.
  String Tool{kNoTool};
  // None: what the window of the tool holds.
  std::optional<ToolSettings> Settings{};
};

inline constexpr std::size_t kPasses = 3;

struct BatchOrder {
  // Full paths.
  std::vector<String> Files;
  std::array<BatchPass, kPasses> Passes;
  // Of the run; shorter than four characters counts as none.
  String Name;
  // No pause after a good file.
  bool SuperFast = false;
  // Where the first pass writes; empty for the file's own folder.
  String SaveToLocation;
  // In front of the name that is written; not in SaveToLocation.
  String AddPrefix;
  // A file that looks like no ASCII is changed all the same where it is well-formed Unicode text.
  bool AnyText = false;
};
