#pragma once
// What a tool may use of the application.

#include "editor/messages.h"
#include "platform/window/rich_text_box.h"
#include "platform/window/window_system.h"
#include "state/shared_fields.h"
#include "tools/tool_state.h"

struct ToolContext {
  SharedFields& Fields;
  ::RichTextBox& RichTextBox1;
  ::Messages& Messages;
  WindowSystem& Windows;
  ToolState& Tools;
};
