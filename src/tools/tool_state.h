#pragma once
// What tools keep from run to run: their settings windows and counters.

#include "editor/messages.h"
#include "tools/add_carriage_form.h"

struct ToolState {
  ToolState(WindowSystem& windows, Messages& messages) : AddCarriageForm(windows, messages) {}

  ::AddCarriageForm AddCarriageForm;
};
