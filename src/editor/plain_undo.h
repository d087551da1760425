#pragma once
// The undo of the last tool alone: the text from before it, as the tool left it in TempFile1.

#include "editor/messages.h"
#include "platform/window/rich_text_box.h"
#include "state/shared_fields.h"

// Does nothing before the first tool. Failures are passed over, and the text stays.
void PlainUndo(SharedFields& fields, RichTextBox& editor, Messages& messages,
               WindowSystem& windows);
