#include "editor/working_run.h"

#include "platform/window/window_system.h"

WorkingRun::WorkingRun(SharedFields& fields, Messages& messages, WindowSystem& windows,
                       std::size_t textLength)
    : fields_(fields), messages_(messages) {
  fields_.WorkingShown = textLength > kLongText;
  if (!fields_.WorkingShown) return;
  messages_.Working.Show();
  windows.DoEvents();
}

WorkingRun::~WorkingRun() {
  if (fields_.WorkingShown) messages_.Working.Hide();
}
