#pragma once
// Whether a file is text that a batch may change without asking.

#include "platform/system/text_file.h"

// Whether the first four lines hold nothing but ASCII and the seven typographic characters of the
// code page that the program repairs. Leaves the reader at its start.
bool LooksLikeAscii(TextReader& reader);

// Whether all of the file is UTF-8, or marked as Unicode, and holds no control characters but tabs
// and line ends. Leaves the reader at its start.
bool IsUnicodeText(TextReader& reader);
