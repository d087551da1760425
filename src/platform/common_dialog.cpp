#include "platform/common_dialog.h"

#include "platform/runtime_error.h"

bool CommonDialog::AskForFile() {
  try {
    ShowOpen();
    return !IsBlank(FileName);
  } catch (const RuntimeError&) {
    return false;
  }
}
