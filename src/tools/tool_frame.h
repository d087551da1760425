#pragma once
// What all tools share: the road of a tool over the editor's text, and over a file line by line.

#include "tools/tool_context.h"

// Makes one text of another: `result` is emptied by nobody else and may hold anything before.
using TextTransform = void (*)(StringView text, String& result);

// Runs a tool that changes characters only, on the editor or on the file that BatchMode selects.
// On the editor a blank text is left alone and line ends stay as they are; the text from before
// stands in TempFile1 afterwards. On a file each line goes from InputFileNum to TempFile1 with a
// line end. RuntimeError on the file path.
void RunCharacterTool(ToolContext& context, TextTransform transform);
