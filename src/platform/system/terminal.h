#pragma once

// Whether a person at a terminal reads standard error.
bool StandardErrorIsTerminal();
