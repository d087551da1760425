#pragma once

#include "platform/window/key_event.h"

class ChangeCase;

// Runs the command of a key, if it has one. Whether the key ends there instead of going on to the
// control that has the keyboard.
bool RunKeyCommand(ChangeCase& app, const KeyEvent& key);
