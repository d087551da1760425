#pragma once
// The window system with real windows, in a module of its own: a run without windows must not pay
// for it.

#include <memory>

#include "platform/window_system.h"

// What the module exports under this name. The arguments stay in use as long as the window system.
using WindowSystemFactory = WindowSystem*(int& argc, char** argv);
inline constexpr char kWindowSystemFactory[] = "CreateWindowSystem";

// RuntimeError with one line for the user when there is no display or no module.
std::unique_ptr<WindowSystem> LoadWindowSystem(int& argc, char** argv);
