#pragma once

#include "text/text.h"

// What Search and Replace is asked to do.
struct SearchSettings {
  // Alternatives are parted by "<OR>".
  String SearchFor{};
  // Empty deletes.
  String ReplaceWith{};
  // Both texts are lists of character codes.
  bool ByCodes = false;
  bool WholeWord = false;
  bool MatchCase = false;
};
