#include "core/startup.h"

#include "core/change_case.h"
#include "core/splash.h"
#include "core/unattended_run.h"
#include "platform/system/safe_save.h"
#include "state/data_files.h"

namespace {

constexpr int kSplashMilliseconds = 300;

}  // namespace

int RunInWindow(WindowSystem& windows, const JoinedLine& line) {
  const String appFolder = FindAppFolder();
  SetSpareFolder(appFolder);
  Session session(windows, appFolder, line.Text);
  session.NotOpened = line.NotOpened;
  ChangeCase app(session);
  if (HasSwitch(line.Text, Word::NoSplash)) {
    app.Show();
  } else {
    frmSplash splash(windows);
    splash.Show();
    windows.Wait(kSplashMilliseconds);
    app.Show();
    splash.Unload();
  }
  return windows.Run();
}

int RunWithoutWindow(WindowSystem& windows, const JoinedLine& line) {
  const String appFolder = FindAppFolder();
  SetSpareFolder(appFolder);
  Session session(windows, appFolder, line.Text);
  return RunUnattended(session, line);
}
