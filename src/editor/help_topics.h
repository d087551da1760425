#pragma once
// The pages of the program's help, from data/help.

#include <span>

#include "text/text.h"

// Topics that the program opens by itself.
inline constexpr int kHelpContents = 1002;
inline constexpr int kHelpKeys = 1004;
inline constexpr int kHelpCommandLine = 1005;
inline constexpr int kHelpCustomTools = 1007;
inline constexpr int kHelpBatch = 1008;
inline constexpr int kHelpRunProgram = 1011;
inline constexpr int kHelpHtml = 1028;
inline constexpr int kHelpSearchReplace = 1030;
inline constexpr int kHelpBatchUndo = 1034;

struct HelpTopic {
  int Number;
  // The title, an empty line and the page itself; each line ends in LF, and a line is a paragraph.
  StringView Text;
};

// In the order of their numbers.
std::span<const HelpTopic> HelpTopics();
