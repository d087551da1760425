#pragma once
// What all tools share: the road of a tool over the editor's text or a selection of it, and over a
// file. A tool itself is a function of lines that knows neither.
//
// Editor: a blank text is left alone; the text from before stands in
// TempFile1 afterwards; a text of more than 45000 characters shows the Working window meanwhile. A
// tool that fails with a RuntimeError leaves the text as it was, and its message is shown.
// File: lines come from the run's input, from where it stands, and make its result. RuntimeError.

#include <functional>

#include "tools/lines/lines.h"
#include "tools/tool_context.h"

// Makes one text of another: `result` is emptied by nobody else and may hold anything before.
using TextTransform = void (*)(StringView text, String& result);

// Runs a tool that changes characters only: on the editor line ends stay as they are, and there is
// no Working window; on a file each line gets a line end.
void RunCharacterTool(ToolContext& context, TextTransform transform);

// What a tool does with the lines of a text, from the first to the last.
using LineWork = std::function<void(LineSource& in, LineSink& out)>;

// What the tool sees on the editor as its text.
enum class ToolScope { Selection, WholeText };

// Runs a tool that reads lines and prints lines. False when it failed on the editor.
bool RunLineTool(ToolContext& context, const LineWork& work,
                 ToolScope scope = ToolScope::Selection);

// The same for a tool of the table of lines: a text of more lines than that holds fails with
// RuntimeError 9.
bool RunTableTool(ToolContext& context, const LineWork& work);

class RuntimeError;

// A failure of the tool itself: a notice on the editor, thrown on a file. In a chain on the editor,
// a tool that refuses the text gives a notice as well; any other failure is thrown, and ends it.
void Tell(ToolContext& context, const RuntimeError& error);

// Keeps a copy of the editor's text in TempFile1 for the plain undo. Where it can't be written, no
// older text stands there either.
void KeepForUndo(const SharedFields& fields, StringView text);
