#pragma once
// The wizard that fills the order of a batch. Its windows stay loaded, so that files, tools,
// settings and name are there for the next run.

#include "batch/mass_convert.h"
#include "batch/mass_convert2.h"
#include "batch/mass_convert4.h"
#include "batch/mult_file_browse.h"

class Wizard {
 public:
  Wizard(WindowSystem& windows, Messages& messages, ToolState& tools,
         const std::map<int, String>& customToolNames);

  // Shows a step, 1 to 4, and those behind it that the user goes on to. What the user wants to be
  // done; nothing where the wizard was left otherwise, or the step has nothing to go on from.
  std::optional<BatchOrder> Ask(int step);

  ::MassConvert MassConvert;
  ::MultFileBrowse MultFileBrowse;
  ::MassConvert2 MassConvert2;
  ::MassConvert4 MassConvert4;

 private:
  bool MayBeginAt(int step) const;
  BatchOrder Order() const;
};
