#pragma once
// What a tool may use of the application.

#include "editor/messages.h"
#include "platform/window/rich_text_box.h"
#include "platform/window/window_system.h"
#include "state/shared_fields.h"
#include "tools/tool_state.h"

class FileRun;

struct ToolContext {
  SharedFields& Fields;
  ::RichTextBox& RichTextBox1;
  ::Messages& Messages;
  WindowSystem& Windows;
  ToolState& Tools;
  // The file that the tool works on; none on the editor.
  FileRun* File = nullptr;
  // The tool is a step of a chain on the editor: it reports no success, and a failure may
  // end the chain.
  bool CustomToolRunning = false;
};
