#pragma once
// What holds for every text that goes through a tool.

#include "tools/catalogue.h"

// A tool with the settings that a fuzzer may give it.
struct FuzzedTool {
  StringView StoredName;
  // Sets the tool's windows by a few random numbers.
  void (*Set)(ToolState&, unsigned choice);
  // The letters of the text stay, in another case at most.
  bool KeepsLetters;
  // Run again on its own result it changes nothing.
  bool Idempotent;
};

// Every tool of the menu.
std::span<const FuzzedTool> FuzzedTools();

// Runs the tool over the text on the editor and on a file and checks what holds for it; ends the
// process with a message where something does not.
void CheckTool(const FuzzedTool& tool, StringView text, unsigned choice);
