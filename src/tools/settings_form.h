#pragma once
// What the settings windows of the tools share. The controls keep their values when the window
// goes, whichever way; whoever showed it looks at Cancelled.

#include <array>
#include <optional>

#include "editor/help_topics.h"
#include "editor/messages.h"
#include "platform/window/form.h"
#include "state/shared_fields.h"
#include "tools/tool_settings.h"

class SettingsForm : public Form {
 public:
  // What the window holds.
  virtual ToolSettings Settings() const = 0;
  // settings: of the window's own kind; others change nothing.
  virtual void Use(const ToolSettings& settings) = 0;
  // Before the user is asked from the menu.
  virtual void TakeDefaults(const SharedFields&) {}
  // Shows the window. Nothing where it was refused; it then holds again what it held before.
  std::optional<ToolSettings> Ask();

  void CloseByFrame() override { Close(true); }
  // Goes on with the settings as they stand.
  String AnswerUnattended() override {
    Close(false);
    return {};
  }

  // The user has refused; set while the window is away.
  bool Cancelled = false;

 protected:
  SettingsForm(WindowSystem& windows, Messages& messages) : Form(windows), messages_(messages) {}

  void Wire(CommandButton& ok, CommandButton& cancel);
  void WireHelp(CommandButton& help, int topic);
  // Whether the settings will do; tells the user what is wrong with them.
  virtual bool Check() = 0;
  // False, and a notice.
  bool Refuse(StringView complaint);
  virtual void Close(bool cancelled);

  Messages& messages_;
};

// A control that holds one of the settings.
struct SettingControl {
  SettingControl(TextBox& box) : Box(&box) {}
  SettingControl(CheckBox& check) : Check(&check) {}

  TextBox* Box = nullptr;
  CheckBox* Check = nullptr;
};

// The window of one kind of settings.
template <class Kind>
class SettingsFormOf : public SettingsForm {
 public:
  Kind Values() const {
    Kind values;
    for (std::size_t i = 0; i < kFields.size(); ++i) {
      if (kFields[i].Text)
        values.*kFields[i].Text = controls_[i].Box->Text;
      else
        values.*kFields[i].Flag = controls_[i].Check->Value == 1;
    }
    return values;
  }
  ToolSettings Settings() const override { return Values(); }
  void Use(const ToolSettings& settings) override {
    const Kind* values = std::get_if<Kind>(&settings);
    for (std::size_t i = 0; values != nullptr && i < kFields.size(); ++i) {
      if (kFields[i].Text)
        controls_[i].Box->Text = values->*kFields[i].Text;
      else
        controls_[i].Check->Value = values->*kFields[i].Flag ? 1 : 0;
    }
  }

 protected:
  static constexpr const auto& kFields = kSettingFields<Kind>;
  using Controls = std::array<SettingControl, kSettingFields<Kind>.size()>;

  // controls: in the order of the fields.
  SettingsFormOf(WindowSystem& windows, Messages& messages, const Controls& controls)
      : SettingsForm(windows, messages), controls_(controls) {}

 private:
  Controls controls_;
};
