#include "platform/window_module.h"

#include <algorithm>
#include <array>
#include <dlfcn.h>

#include "platform/files.h"
#include "platform/runtime_error.h"

namespace {

constexpr std::array<StringView, 2> kPlaces{u"wordflurn-qt.so",
                                            u"../lib/wordflurn/wordflurn-qt.so"};

bool CanShowWindows() {
  if (!Environment("DISPLAY").empty() || !Environment("WAYLAND_DISPLAY").empty()) return true;
  // Platforms that need no display; behind a colon stand their settings.
  const String platform = Environment("QT_QPA_PLATFORM");
  const auto name = platform.substr(0, platform.find(u':'));
  constexpr std::array<StringView, 3> kWithoutDisplay{u"offscreen", u"minimal", u"vnc"};
  return std::find(kWithoutDisplay.begin(), kWithoutDisplay.end(), name) != kWithoutDisplay.end();
}

std::string LastError() {
  const char* error = dlerror();
  return error ? error : "unknown error";
}

void* OpenModule() {
  const String folder = ProgramFolder();
  for (const StringView place : kPlaces) {
    const String path = JoinPath(folder, place);
    // Not by opening alone: the error of a module that is there says more than that of one that is
    // not.
    if (!FileExists(path)) continue;
    if (void* module = dlopen(ToUtf8(path).c_str(), RTLD_NOW)) return module;
    throw RuntimeError(kFileNotFound, "The window module can't be loaded: " + LastError());
  }
  throw RuntimeError(kFileNotFound, "The window module is missing: there is no " +
                                        ToUtf8(JoinPath(folder, kPlaces.front())));
}

template <class Function>
Function* FindInModule(const char* name) {
  if (!CanShowWindows())
    throw RuntimeError(kInvalidCall,
                       "No display: set DISPLAY or WAYLAND_DISPLAY, or name a tool to run without "
                       "windows.");
  // Never closed: the toolkit in it does not survive that.
  auto* function = reinterpret_cast<Function*>(dlsym(OpenModule(), name));
  if (!function)
    throw RuntimeError(kFileNotFound, "The window module does not fit: " + LastError());
  return function;
}

}  // namespace

std::unique_ptr<WindowSystem> LoadWindowSystem(int& argc, char** argv) {
  return std::unique_ptr<WindowSystem>(
      FindInModule<WindowSystemFactory>(kWindowSystemFactory)(argc, argv));
}

int RunAsClipboardKeeper(int& argc, char** argv) {
  return FindInModule<ClipboardKeeper>(kClipboardKeeper)(argc, argv);
}
