#include "core/startup.h"

#include "core/change_case.h"
#include "core/command_line.h"
#include "core/splash.h"
#include "platform/system/safe_save.h"
#include "platform/system/work_folder.h"
#include "state/data_files.h"

namespace {

constexpr int kSplashMilliseconds = 300;

}  // namespace

int Main(WindowSystem& windows, const String& commandLine) {
  const String appFolder = FindAppFolder();
  const WorkFolder workFolder(appFolder);
  SetSpareFolder(appFolder);
  ChangeCase app(windows, appFolder, workFolder.Path(), commandLine);
  if (HasSwitch(commandLine, u"/NOSPLASH") || !windows.Attended()) {
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
