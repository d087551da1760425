#pragma once
// Qt's keys as the program numbers them.

#include <QKeyEvent>

#include "platform/window/key_event.h"

KeyEvent ToKeyEvent(const QKeyEvent& event);
