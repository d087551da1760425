#pragma once

#include "text/text.h"

// Puts characters in place of the entities of a text, also of those that only come about that way.
// True when there were any.
bool DecodeEntities(String& text);
