#pragma once
// The program's own icons, drawn as lines in the colour of the text, so that they fit every palette
// and scale without an icon theme.

#include <QIcon>
#include <string_view>

#include "text/text.h"

// The icon of this name; an empty one when there is none.
QIcon NamedIcon(const String& name);

// The drawing of a name on a grid of 24 by 24, empty when there is none: M x y (go to), L x y
// (line), C with three points (curve), Z (close), O x y r (circle).
std::string_view IconDrawing(StringView name);
