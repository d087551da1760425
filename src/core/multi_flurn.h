#pragma once
// Multiple File Flurn at the main window: the wizard, the run and its undo.

#include "batch/batch_windows.h"
#include "batch/wizard.h"
#include "core/session.h"

class MultiFlurn {
 public:
  explicit MultiFlurn(Session& session);

  // Asks what to do, from a step of the wizard on, and does it.
  void Begin(int step);

  BatchWindows Windows;
  ::Wizard Wizard;

 private:
  Session& session_;
};
