#pragma once
// Several tools one after the other on one file.

#include "state/shared_fields.h"

// After a tool of a chain, before the next: in a batch the next tool reads what the last one wrote.
// The file itself waits for the result of the whole chain, so that a tool that fails leaves it as
// it was. On the editor each tool has put its result there already. RuntimeError.
void ChainStep(SharedFields& fields);

// Opens a copy of the last tool's result as the input of the next one: in the format that it was
// written in, which a text that has become blank or plain ASCII no longer shows.
void ReadResult(SharedFields& fields, const String& copy);
