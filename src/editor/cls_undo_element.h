#pragma once
// One step of undo: what changed, and where the user was.

#include <chrono>
#include <cstddef>

#include "text/text.h"

struct clsUndoElement {
  // The changed block as it was and as it became; the text in front of it and behind it stayed.
  String TextBlock_BeforeChange;
  String TextBlock_AfterChange;
  std::size_t FrontLength = 0;
  std::size_t EndLength = 0;
  std::size_t SelStartBefore = 0;
  std::size_t SelLengthBefore = 0;
  std::size_t SelStartAfter = 0;
  std::size_t SelLengthAfter = 0;
  // Of the control when the record was made, counted from 0.
  std::size_t FirstVisibleLine = 0;
  std::chrono::system_clock::time_point Time;
  // A tool's run, not typing.
  bool Tool = false;
};
