// The only way into the module.

#include "platform/qt/event_guard.h"
#include "platform/qt/qt_window_system.h"
#include "platform/window_module.h"

extern "C" __attribute__((visibility("default"))) WindowSystem* CreateWindowSystem(int& argc,
                                                                                   char** argv) {
  return new QtWindowSystem(std::make_unique<GuardedApplication>(argc, argv));
}
