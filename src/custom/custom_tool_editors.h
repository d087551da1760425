#pragma once
// The windows that make, change and delete custom tools, and what they share.

#include "custom/create_tool.h"
#include "custom/edit_tool2.h"

struct CustomToolEditors {
  // customToolFile must outlive the object.
  CustomToolEditors(WindowSystem& windows, Messages& messages, ToolState& tools,
                    const WorkFolder& folder, const String& customToolFile)
      : Listed(folder, customToolFile),
        CreateTool(windows, messages, tools, Listed),
        EditTool1(windows, messages, Listed),
        EditTool2(windows, messages, tools, Listed, EditTool1) {
    EditTool1.OnChosen = [this] { EditTool2.ShowModal(); };
  }

  ListedTools Listed;
  ::CreateTool CreateTool;
  ::EditTool1 EditTool1;
  ::EditTool2 EditTool2;
};
