#pragma once
// Step 4 of the wizard: name, speed and start.

#include "editor/messages.h"

class MassConvert4 : public Form {
 public:
  MassConvert4(WindowSystem& windows, Messages& messages);
  Layout Content() override;
  void CloseByFrame() override { Command2.Click(); }

  // The user wants the run; whoever begins it clears this.
  bool StartClicked = false;
  bool WizardCancelled = false;

  Label Label2;
  Label Label3;
  Label Label5;
  Label Label4;
  CheckBox Check1;  // Super Fast Flurn
  Label Label7;
  Label Label8;
  TextBox txtMFFName;
  CommandButton Command1;
  CommandButton Command2;

 protected:
  void Load() override { StartClicked = false; }

 private:
  // What is wrong with the name; empty where it will do.
  StringView Complaint() const;
  void Start();
  void Cancel();

  Messages& messages_;
};
