#pragma once
// The title bar's texts.

#include "text/text.h"

inline constexpr StringView kProduct = u"WordFlurn 2.0";
inline constexpr StringView kUntitled = u"Untitled - WordFlurn 2.0";

enum class TitleState { Plain, ReadOnly, Encrypted };

// "WordFlurn 2.0 - name", with "(read-only)" or "(encrypted)" in front of the dash.
String TitleOf(TitleState state, StringView name);
// Whether a title is that of an encrypted document.
bool IsEncryptedTitle(StringView title);
