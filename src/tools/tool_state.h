#pragma once
// What tools keep from run to run: their settings windows and counters.

#include "editor/messages.h"
#include "tools/add_carriage_form.h"
#include "tools/html_form.h"
#include "tools/lines/line_replacer.h"
#include "tools/replace_found_num.h"
#include "tools/run_program_settings.h"
#include "tools/search_replace_form.h"

struct ToolState {
  ToolState(WindowSystem& windows, Messages& messages)
      : AddCarriageForm(windows, messages),
        RunProgramSettings(windows, messages),
        SearchReplaceForm(windows, messages),
        ReplaceFoundNum(windows),
        HTML(windows, messages) {}

  ::AddCarriageForm AddCarriageForm;
  ::RunProgramSettings RunProgramSettings;
  ::SearchReplaceForm SearchReplaceForm;
  ::ReplaceFoundNum ReplaceFoundNum;
  ::HTML HTML;
  ReplaceState Replacing;
};
