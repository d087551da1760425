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
  // Lets the user undo one of the last runs.
  void ShowUndo();

  BatchWindows Windows;
  ::Wizard Wizard;

 private:
  // Does what may change files, and tells where the file of the document was among them: saving
  // the text would write over that.
  void Watched(const std::function<void()>& action);

  Session& session_;
};
