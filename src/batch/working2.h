#pragma once
// Progress of a batch.

#include "platform/window/form.h"

class Working2 : public Form {
 public:
  explicit Working2(WindowSystem& windows);
  Layout Content() override;
  // No text may be changed, and the program not be left, while a batch works.
  bool BlocksOthers() const override { return true; }
  void CloseByFrame() override { Command1.Click(); }

  // That the batch works on file `file` of `of`, counted from 1.
  void ShowFile(std::size_t file, std::size_t of);

  // The user wants the batch to stop; the batch reads it between files.
  bool CancelClicked = false;

  Label Label1;
  Label Label2;
  // What the batch is doing.
  Label Label3;
  // How far it is.
  Label Label4;
  ProgressBar Progress;
  CommandButton Command1;

 protected:
  void Load() override;
};

// "5,000"
String Grouped(std::size_t number);
// "file 37 of 5,000"
String FileOf(std::size_t file, std::size_t of);
