#include "custom/create_tool.h"

#include "editor/help_topics.h"

namespace {

constexpr StringView kAllInUse =
    u"You have reached the maximum number of custom tools that you can create.  You can however "
    u"edit one of your existing tools by selecting the related option on the Custom Tools menu.";

}  // namespace

CreateTool::CreateTool(WindowSystem& windows, Messages& messages, ToolState& tools,
                       ListedTools& listed)
    : StepsForm(windows, messages, tools), listed_(listed) {
  Caption = u"Create Custom Tool";
  Command1.Caption = u"&Create Tool!";
  Command1.OnClick = [this] { Create(); };
  Command2.OnClick = [this] { End(); };
  Columns = 90;
  Command8.Caption = u"Help!";
  Command8.OnClick = [this] { messages_.Help(kHelpCustomTools); };
  // Every other click selects the name.
  Text1.OnClick = [this] {
    if (selectsName_)
      Text1.SelectAll();
    else
      Text1.SelLength = 0;
    selectsName_ = !selectsName_;
  };
}

Layout CreateTool::Content() {
  return Column({NameAndSteps(), Row({Stretch(), Command1, Command2, Command8, Stretch()})});
}

void CreateTool::Begin() {
  listed_.ListAnew();
  const int number = listed_.List().Count + 1;
  if (number > kMostCustomTools) return messages_.Notice(kAllInUse);
  ClearSteps();
  Text1.Text = DefaultName(number);
  Text1.SelectAll();
  Text1.SetFocus();
  selectsName_ = true;
  ShowModal();
}

void CreateTool::Create() {
  if (!StepsAreComplete()) return;
  try {
    if (!listed_.Append([this](int number) { return Tool(number); }))
      return messages_.Notice(kAllInUse);
  } catch (const std::exception& error) {
    return messages_.Notice(FromUtf8(error.what()));
  }
  End();
}

void CreateTool::End() {
  ClearSteps();
  Hide();
}
