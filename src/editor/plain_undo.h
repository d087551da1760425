#pragma once
// The undo of the last tool alone: the text from before it, as the tool left it in TempFile1.

#include "core/shared_fields.h"
#include "editor/messages.h"
#include "platform/rich_text_box.h"

// Does nothing before the first tool. Failures are passed over, and the text stays.
void PlainUndo(SharedFields& fields, RichTextBox& editor, Messages& messages,
               WindowSystem& windows);
