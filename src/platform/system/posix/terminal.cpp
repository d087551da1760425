#include "platform/system/terminal.h"

#include <unistd.h>

bool StandardErrorIsTerminal() { return isatty(STDERR_FILENO) == 1; }
