#pragma once
// What a tool may use of the application.

#include "core/shared_fields.h"
#include "editor/messages.h"
#include "platform/rich_text_box.h"
#include "platform/window_system.h"
#include "tools/tool_state.h"

struct ToolContext {
  SharedFields& Fields;
  ::RichTextBox& RichTextBox1;
  ::Messages& Messages;
  WindowSystem& Windows;
  ToolState& Tools;
};
