// The only ways into the module.

#include <malloc.h>

#include "platform/qt/clipboard_keeper.h"
#include "platform/qt/event_guard.h"
#include "platform/qt/qt_window_system.h"
#include "platform/window/window_module.h"

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED WindowSystem* CreateWindowSystem(int& argc, char** argv) {
  // A long text comes and goes in blocks of tens of megabytes, at each snapshot for undo. Kept for
  // the next one they cost nothing; fresh ones cost a page fault for every 4 KB.
  mallopt(M_MMAP_THRESHOLD, 32 << 20);
  mallopt(M_TRIM_THRESHOLD, 256 << 20);
  return new QtWindowSystem(std::make_unique<GuardedApplication>(argc, argv));
}

EXPORTED int RunClipboardKeeper(int& argc, char** argv) { return KeepClipboard(argc, argv); }
