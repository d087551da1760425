#pragma once
// How encrypted text is recognised.

#include "text/text.h"

// How the marker lines of all versions begin.
inline constexpr StringView kEncryptionMarkerStart =
    u"**This file has been encrypted with WordFlurn";

// Whether one of the marker lines stands anywhere in the text, in exact case.
bool HoldsEncryptionMarker(StringView text);
