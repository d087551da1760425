#pragma once
// The title bar's texts.

#include "state/product.h"

inline constexpr StringView kUntitled = u"Untitled - " WORDFLURN_PRODUCT;

enum class TitleState { Plain, ReadOnly, Encrypted };

// "WordFlurn 2.0 - name", with "(read-only)" or "(encrypted)" in front of the dash.
String TitleOf(TitleState state, StringView name);
// The same for a file that a save has yet to make.
String NewFileTitle(StringView path);
