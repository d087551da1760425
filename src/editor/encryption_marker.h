#pragma once
// How encrypted text is recognised.

#include "text/text.h"

// Whether one of the marker lines stands anywhere in the text, in exact case.
bool HoldsEncryptionMarker(StringView text);
