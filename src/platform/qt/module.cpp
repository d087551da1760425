// The only ways into the module.

#include "platform/qt/clipboard_keeper.h"
#include "platform/qt/event_guard.h"
#include "platform/qt/qt_window_system.h"
#include "platform/window_module.h"

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED WindowSystem* CreateWindowSystem(int& argc, char** argv) {
  return new QtWindowSystem(std::make_unique<GuardedApplication>(argc, argv));
}

EXPORTED int RunClipboardKeeper(int& argc, char** argv) { return KeepClipboard(argc, argv); }
