#pragma once
// One run of a batch: the passes of an order over all of its files, each with a backup first.

#include <map>

#include "batch/batch_order.h"
#include "batch/batch_progress.h"
#include "batch/batch_windows.h"
#include "custom/custom_tool_runner.h"
#include "platform/system/work_folder.h"

// What a batch works with.
struct BatchTools {
  ToolContext Context;
  CustomToolRunner& CustomTools;
  const std::map<int, String>& CustomToolNames;
  BatchWindows& Windows;
  const ::WorkFolder& WorkFolder;
};

enum class BatchEnd {
  Done,
  Unsure,     // done, but nobody can know whether all of it is on the disk
  Cancelled,  // what was flurned stays
  NotBegun,   // the backup folders can't be used: no file was touched
  Aborted,    // taken back, as far as the messages tell nothing else
};

// Holds the lock of the data folder from the rotation of the backups to the end. Tells of the
// failed files in the window for that. RuntimeError, and nothing has happened, where the lock or a
// custom tool can't be had.
BatchEnd AUTOConvert(BatchTools& tools, const BatchOrder& order, BatchProgress& progress);
