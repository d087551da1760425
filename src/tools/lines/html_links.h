#pragma once

#include "text/text.h"

// Makes links of the web addresses in a line.
void AddLinks(String& line);
