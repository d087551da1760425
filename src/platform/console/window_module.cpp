#include "platform/window/window_module.h"

#include <algorithm>
#include <array>
#include <dlfcn.h>

#include "platform/system/files.h"
#include "text/runtime_error.h"

namespace {

constexpr std::array<StringView, 2> kPlaces{u"wordflurn-qt.so",
                                            u"../lib/wordflurn/wordflurn-qt.so"};

// The platform that the environment asks for, without its settings behind a colon. May be a list.
String WantedPlatform() {
  const String wanted = Environment("QT_QPA_PLATFORM");
  return wanted.substr(0, wanted.find(u':'));
}

bool HasDisplay() {
  return !Environment("DISPLAY").empty() || !Environment("WAYLAND_DISPLAY").empty();
}

bool NeedsNoDisplay(StringView platform) {
  constexpr std::array<StringView, 3> kWithoutDisplay{u"offscreen", u"minimal", u"vnc"};
  return std::find(kWithoutDisplay.begin(), kWithoutDisplay.end(), platform) !=
         kWithoutDisplay.end();
}

bool CanShowWindows() { return HasDisplay() || NeedsNoDisplay(WantedPlatform()); }

bool WantsX11() {
  const String platform = WantedPlatform();
  return platform == u"xcb" || (platform.empty() && Environment("WAYLAND_DISPLAY").empty());
}

// Asks the X server of DISPLAY. True as well when there is nothing to ask with.
bool AnswersOnX11() {
  using Connect = void*(const char* display, int* screen);
  using HasError = int(void* connection);
  using Disconnect = void(void* connection);
  void* const library = dlopen("libxcb.so.1", RTLD_NOW);
  if (!library) return true;
  auto* connect = reinterpret_cast<Connect*>(dlsym(library, "xcb_connect"));
  auto* hasError = reinterpret_cast<HasError*>(dlsym(library, "xcb_connection_has_error"));
  auto* disconnect = reinterpret_cast<Disconnect*>(dlsym(library, "xcb_disconnect"));
  if (!connect || !hasError || !disconnect) return true;
  void* const connection = connect(nullptr, nullptr);
  const bool answers = hasError(connection) == 0;
  disconnect(connection);
  return answers;
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
  // The toolkit would end the process without a word to its caller.
  if (WantsX11() && !AnswersOnX11())
    throw RuntimeError(kInvalidCall,
                       "Can't connect to the display \"" + ToUtf8(Environment("DISPLAY")) + "\".");
  // Never closed: the toolkit in it does not survive that.
  auto* function = reinterpret_cast<Function*>(dlsym(OpenModule(), name));
  if (!function)
    throw RuntimeError(kFileNotFound, "The window module does not fit: " + LastError());
  return function;
}

}  // namespace

bool PersonCanSeeWindows() { return HasDisplay() && !NeedsNoDisplay(WantedPlatform()); }

std::unique_ptr<WindowSystem> LoadWindowSystem(int& argc, char** argv) {
  return std::unique_ptr<WindowSystem>(
      FindInModule<WindowSystemFactory>(kWindowSystemFactory)(argc, argv));
}

int RunAsClipboardKeeper(int& argc, char** argv) {
  return FindInModule<ClipboardKeeper>(kClipboardKeeper)(argc, argv);
}
