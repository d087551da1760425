#include "custom/edit_tool2.h"

#include "editor/help_topics.h"
#include "text/runtime_error.h"

EditTool2::EditTool2(WindowSystem& windows, Messages& messages, ToolState& tools,
                     ListedTools& listed, const EditTool1& choice)
    : StepsForm(windows, messages, tools), listed_(listed), choice_(choice) {
  Caption = u"Edit Custom Tool";
  Label7.Caption =
      u"Your current settings for this tool are shown below.  You can either modify these settings "
      u"or delete this tool altogether.  To delete this tool, click the Delete Tool button.  To "
      u"modify it with your new changes, click the Modify Tool button.";
  Label7.WordWrap = Label8.WordWrap = true;
  Command1.Caption = u"&Modify Tool!";
  Command1.OnClick = [this] {
    if (!UserAgrees(u"modify") || !StepsAreComplete()) return;
    Change([this] { return listed_.Replace(Tool(listed_.List().Count + 1), number_, name_); });
  };
  Command2.OnClick = [this] { Unload(); };
  Command8.Caption = u"&Delete Tool!";
  Command8.OnClick = [this] {
    if (UserAgrees(u"delete")) Change([this] { return listed_.Delete(number_, name_); });
  };
  Columns = 90;
  Command9.Caption = u"Help!";
  Command9.OnClick = [this] { messages_.Help(kHelpCustomTools); };
}

Layout EditTool2::Content() {
  return Column({Label7, NameAndSteps(), Label8,
                 Row({Stretch(), Command1, Command8, Command2, Command9, Stretch()})});
}

void EditTool2::Load() {
  std::tie(number_, name_) = choice_.Chosen();
  Text1.Text = name_;
  String cause;
  try {
    if (!ShowSteps(listed_.Read(number_, name_)))
      cause = u"One of them is a tool that this list does not have.";
  } catch (const RuntimeError& error) {
    ClearSteps();
    cause = FromUtf8(error.what());
  }
  Label8.Visible = !cause.empty();
  Label8.Caption =
      u"The steps of this tool can't be shown; modifying it would replace them. " + cause;
}

bool EditTool2::UserAgrees(StringView verb) {
  return messages_.Ask(u"Are you sure you want to " + String(verb) + u" tool: " + Text1.Text.Get() +
                       u"?") == Answer::Yes;
}

void EditTool2::Change(const std::function<bool()>& change) {
  try {
    if (change()) return Unload();
    messages_.Notice(
        u"Another program has changed the custom tools since this window was opened. Nothing was "
        u"written. To go on with the tools as they are now, click the button again.");
  } catch (const std::exception& error) {
    messages_.Notice(FromUtf8(error.what()));
  }
}
