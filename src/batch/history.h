#pragma once
// Reading the history of a run, the file WFMFFDIR.DAT in its folder.

#include <vector>

#include "batch/history_record.h"
#include "batch/run_head.h"

inline constexpr StringView kHistoryName = u"WFMFFDIR.DAT";

struct History {
  RunHead Head;
  // An older head of two lines.
  bool NoNameLine = false;
  // In the order of the work, up to the first line that is no record.
  std::vector<HistoryRecord> Records;
  // There was such a line.
  bool BadLine = false;
};

// The head of the run in this folder; NoNameLine is set, too. RuntimeError when its lines can't be
// read.
History ReadHistoryHead(const String& folder);
// All of it. A line that was cut off, and so has no end, is no record.
History ReadHistory(const String& folder, TokenCase tokenCase);
