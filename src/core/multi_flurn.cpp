#include "core/multi_flurn.h"

#include "batch/auto_convert.h"
#include "batch/window_progress.h"
#include "platform/system/file_copy.h"

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
    Watched([&] { AUTOConvert(tools, *order, progress); });
  } catch (const std::exception& error) {
    Windows.Working2.Unload();
    session_.Messages.Notice(FromUtf8(error.what()));
  }
}

void MultiFlurn::ShowUndo() {
  Watched([this] { Windows.ShowUndo(); });
}

void MultiFlurn::Watched(const std::function<void()>& action) {
  const String path = session_.Fields.HasFileName ? session_.Document.Path() : String();
  const auto stamp = [&path]() -> std::optional<FileStamp> {
    try {
      return path.empty() ? std::nullopt : StampOf(path);
    } catch (const RuntimeError&) {
      return {};
    }
  };
  const auto before = stamp();
  action();
  if (stamp() == before) return;
  session_.Messages.Notice(path +
                           u" has been changed. The editor still shows the text from before: "
                           u"open the file anew to see it, or save under another name.");
}
