#pragma once
// Files dropped on a window.

#include <QWidget>

#include "platform/qt/bindings.h"
#include "platform/window/form.h"

// Hands local files dropped anywhere on the window to the form; text dropped goes its own way.
void AcceptFiles(Form& form, QWidget& window, Bindings& bindings);
