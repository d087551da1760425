#pragma once
// Asks whether a file that looks like no text is to be changed.

#include <optional>

#include "platform/window/form.h"

class ASCIIWarn : public Form {
 public:
  explicit ASCIIWarn(WindowSystem& windows);
  Layout Content() override;
  void CloseByFrame() override { Command1.Click(); }
  // Nobody there: NO.
  String AnswerUnattended() override;

  // At the start of a run: the files of this one have not been answered for yet.
  void BeginRun() { answerForAll_.reset(); }
  // Whether to go on with this file; asks unless the user has answered for all further files.
  bool Proceeds(const String& file);

  // The file that is asked about; set it before the window is shown.
  String CurrentBatchFile;
  bool ProceedWithFile = false;

  Label Label1;
  Label Label2;
  Label Label3;
  Label Label4;
  // The same answer for all further files.
  CheckBox Check1;
  CommandButton Command1;
  CommandButton Command2;

 protected:
  void Load() override;

 private:
  std::optional<bool> answerForAll_;
};
