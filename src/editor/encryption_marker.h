#pragma once
// How encrypted text is recognised.

#include "text/text.h"

// How the marker lines of all versions begin.
inline constexpr StringView kEncryptionMarkerStart =
    u"**This file has been encrypted with WordFlurn";

// Whether one of the marker lines stands anywhere in the text, in exact case.
bool HoldsEncryptionMarker(StringView text);

class InputFile;
// Whether what all markers begin with stands in what is left of the file, in any encoding.
bool HoldsEncryptionMarker(InputFile& file);
