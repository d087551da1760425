#pragma once
// What tools keep from run to run: their settings windows and counters.

#include "editor/messages.h"
#include "tools/add_carriage_form.h"
#include "tools/run_program_settings.h"

struct ToolState {
  ToolState(WindowSystem& windows, Messages& messages)
      : AddCarriageForm(windows, messages), RunProgramSettings(windows, messages) {}

  ::AddCarriageForm AddCarriageForm;
  ::RunProgramSettings RunProgramSettings;
};
