#pragma once
// Files dropped on a window.

#include <QMainWindow>

#include "platform/form.h"
#include "platform/qt/bindings.h"

// Hands local files dropped anywhere on the window to the form; text dropped goes its own way.
void AcceptFiles(Form& form, QMainWindow& window, Bindings& bindings);
