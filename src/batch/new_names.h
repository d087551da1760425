#pragma once
// The names that a batch gives to what it writes.

#include "text/text.h"

// The text behind the last "." of the whole path, folders included; empty where there is none.
String BatchFileExt(StringView path);
// The path with another extension, such as u".html", in place of its name's own. A leading dot
// begins none.
String WithExtension(StringView path, StringView extension);
String WithPrefix(StringView path, StringView prefix);
