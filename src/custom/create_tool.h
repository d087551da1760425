#pragma once
// Makes a custom tool.

#include "custom/listed_tools.h"
#include "custom/steps_form.h"

class CreateTool : public StepsForm {
 public:
  CreateTool(WindowSystem& windows, Messages& messages, ToolState& tools, ListedTools& listed);
  Layout Content() override;
  void CloseByFrame() override { Command2.Click(); }

  // What the menu entry does.
  void Begin();

  CommandButton Command8;

 private:
  void Create();
  void End();

  ListedTools& listed_;
  bool selectsName_ = true;
};
