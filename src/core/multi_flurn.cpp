#include "core/multi_flurn.h"

#include "batch/auto_convert.h"
#include "batch/window_progress.h"

MultiFlurn::MultiFlurn(Session& session)
    : Windows(session.Windows, session.Messages, session.Fields.AppFolder,
              LockOf(session.WorkFolder)),
      Wizard(session.Windows, session.Messages, session.Tools, session.CustomToolNames),
      session_(session) {}

void MultiFlurn::Begin(int step) {
  const auto order = Wizard.Ask(step);
  if (!order) return;
  BatchTools tools{session_.Context(), session_.CustomTools, session_.CustomToolNames, Windows,
                   session_.WorkFolder};
  WindowProgress progress(session_.Windows, Windows.Working2);
  try {
    AUTOConvert(tools, *order, progress);
  } catch (const std::exception& error) {
    Windows.Working2.Unload();
    session_.Messages.Notice(FromUtf8(error.what()));
  }
}
