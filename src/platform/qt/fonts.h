#pragma once
#include <QFont>

#include "platform/window/rich_text_box.h"

// The font of that name; where the system has none such, its fixed-pitch font in that size.
QFont ToQFont(const TextFont& font);
