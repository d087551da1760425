#pragma once
// Changes or deletes the custom tool that was chosen in EditTool1.

#include "custom/edit_tool1.h"
#include "custom/steps_form.h"

class EditTool2 : public StepsForm {
 public:
  EditTool2(WindowSystem& windows, Messages& messages, ToolState& tools, ListedTools& listed,
            const EditTool1& choice);
  Layout Content() override;

  Label Label7;
  // Why the steps are not shown.
  Label Label8;
  CommandButton Command8;
  CommandButton Command9;

 protected:
  void Load() override;

 private:
  bool UserAgrees(StringView verb);
  // Runs a change, which returns whether the tools were as they had been listed, and ends.
  void Change(const std::function<bool()>& change);

  ListedTools& listed_;
  const EditTool1& choice_;
  int number_ = 0;
  String name_;
};
