#pragma once
// The window system with real windows, in a module of its own: a run without windows must not pay
// for it.

#include <memory>

#include "platform/window/window_system.h"

// What the module exports under this name. The arguments stay in use as long as the window system.
using WindowSystemFactory = WindowSystem*(int& argc, char** argv);
inline constexpr char kWindowSystemFactory[] = "CreateWindowSystem";

// A process of this program's own that holds the clipboard's text after the program has ended; its
// only argument is this option.
using ClipboardKeeper = int(int& argc, char** argv);
inline constexpr char kClipboardKeeper[] = "RunClipboardKeeper";
inline constexpr char kKeepClipboardOption[] = "--keep-clipboard";

// Runs as that process and returns its exit status. RuntimeError as below.
int RunAsClipboardKeeper(int& argc, char** argv);

// Whether windows would come up where somebody may be: not on a platform without a display.
bool PersonCanSeeWindows();

// RuntimeError with one line for the user when there is no display or no module.
std::unique_ptr<WindowSystem> LoadWindowSystem(int& argc, char** argv);
