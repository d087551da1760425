#pragma once

#include "text/text.h"

// Whether a name fits one of the patterns with "*" and "?" parted by ";", in any case. "*.*" fits
// every name.
bool FitsPattern(StringView name, StringView patterns);
