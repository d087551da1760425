#include "batch/wizard.h"

Wizard::Wizard(WindowSystem& windows, Messages& messages, ToolState& tools,
               const std::map<int, String>& customToolNames)
    : MassConvert(windows, messages),
      MultFileBrowse(windows, messages),
      MassConvert2(windows, messages, tools, customToolNames),
      MassConvert4(windows, messages) {
  MassConvert.OnNext = [this] { MultFileBrowse.ShowModal(); };
  MultFileBrowse.OnNext = [this] { MassConvert2.ShowModal(); };
  MassConvert2.OnNext = [this] { MassConvert4.ShowModal(); };
}

std::optional<BatchOrder> Wizard::Ask(int step) {
  if (!MayBeginAt(step)) return {};
  MassConvert4.StartClicked = false;
  const std::array<Form*, 4> steps{&MassConvert, &MultFileBrowse, &MassConvert2, &MassConvert4};
  steps.at(static_cast<std::size_t>(step) - 1)->ShowModal();
  if (!std::exchange(MassConvert4.StartClicked, false)) return {};
  return Order();
}

bool Wizard::MayBeginAt(int step) const {
  if (step >= 3 && MultFileBrowse.List1.ListCount() == 0) return false;
  return step != 4 || MassConvert2.AnyTool();
}

BatchOrder Wizard::Order() const {
  BatchOrder order;
  order.Files = MultFileBrowse.List1.List;
  order.Passes = MassConvert2.Passes();
  order.Name = MassConvert4.txtMFFName.Text;
  order.SuperFast = MassConvert4.Check1.Value == 1;
  return order;
}
