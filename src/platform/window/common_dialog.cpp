#include "platform/window/common_dialog.h"

#include "text/runtime_error.h"

bool CommonDialog::AskForFile() {
  try {
    ShowOpen();
    return !IsBlank(FileName);
  } catch (const RuntimeError&) {
    return false;
  }
}
