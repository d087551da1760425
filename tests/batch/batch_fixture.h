#pragma once
// A batch over scripted windows, with a data folder and a folder of files of its own.

#include <chrono>
#include <thread>

#include "batch/auto_convert.h"
#include "batch/ring_folder.h"
#include "core/session.h"
#include "custom/custom_tool_store.h"
#include "support/scripted_window_system.h"

class ScriptedProgress : public BatchProgress {
 public:
  // Cancel comes when the run looks for it so many times before its first file, or when it waits
  // behind so many files; never at 0.
  int CancelAtLook = 0;
  int CancelAtFile = 0;

  std::vector<String> Statuses;
  // Behind files and in the rotation.
  std::vector<int> Pauses;
  int FilesDone = 0;

  void Status(const String& text) override { Statuses.push_back(text); }
  void File(std::size_t, std::size_t) override { working_ = true; }
  bool Cancelled() override {
    if (!working_ && ++looks_ == CancelAtLook) cancelled_ = true;
    return cancelled_;
  }
  bool Pause(int milliseconds) override {
    Pauses.push_back(milliseconds);
    if (working_ && ++FilesDone == CancelAtFile) cancelled_ = true;
    return cancelled_;
  }

 private:
  bool working_ = false;
  bool cancelled_ = false;
  int looks_ = 0;
};

struct BatchFixture {
  TestFolder Data{kMemory};
  TestFolder Files{kMemory};
  ScriptedWindowSystem Windows;
  Session App{Windows, Data / "", {}};
  BatchWindows Batch{Windows, App.Messages, Data / "", [this](const std::function<void()>& action) {
                       App.WorkFolder.WhileLocked(action);
                     }};
  ScriptedProgress Progress;
  // How the warning of a file that is no text is answered.
  bool AnyFileIsText = true;
  // Of the windows that came up, in order: of ASCIIWarn the file, of MFFCancel and MultiErrors what
  // they tell.
  std::vector<std::string> Told;

  BatchFixture() {
    // Programs that tools start take their time.
    Windows.OnWait = [] { std::this_thread::sleep_for(std::chrono::milliseconds(1)); };
    Windows.OnModal = [this](Form& form) {
      if (&form == &Batch.ASCIIWarn) {
        Told.push_back(ToUtf8(Batch.ASCIIWarn.Label3.Caption.Get()));
        (AnyFileIsText ? Batch.ASCIIWarn.Command2 : Batch.ASCIIWarn.Command1).Click();
      } else if (&form == &Batch.MFFCancel) {
        Told.push_back(ToUtf8(Batch.MFFCancel.Label1.Caption.Get()));
        Batch.MFFCancel.Command1.Click();
      } else if (&form == &Batch.MultiErrors) {
        Told.push_back(ToUtf8(Batch.MultiErrors.Text1.Text.Get()));
        Batch.MultiErrors.Command1.Click();
      } else {
        Told.push_back(ToUtf8(form.Caption.Get()));
        form.CloseByFrame();
      }
    };
  }

  void AddCustomTool(const CustomTool& tool) {
    CustomToolStore(App.WorkFolder, App.Fields.CustomToolFile)
        .Append(tool, App.Fields.CustomToolCount);
    App.UseCustomTools(ReadCustomToolNames(App.Fields.CustomToolFile));
  }

  BatchEnd RunBatch(const BatchOrder& order) {
    BatchTools tools{App.Context(), App.CustomTools, App.CustomToolNames, Batch, App.WorkFolder};
    return AUTOConvert(tools, order, Progress);
  }

  // The records of a run, its files' folder left out.
  std::string History(const std::string& run = "1") const {
    std::string text = Data.Get("MFF-Backups/" + run + "/WFMFFDIR.DAT");
    for (int line = 0; line < 3; ++line) text.erase(0, text.find('\n') + 1);
    return Without(text);
  }
  std::string Without(std::string text) const {
    const std::string folder = Files.Path.native() + "/";
    for (std::size_t at; (at = text.find(folder)) != std::string::npos;)
      text.erase(at, folder.size());
    return text;
  }
  // What the windows told, the files' folder left out.
  std::vector<std::string> ToldOf() const {
    std::vector<std::string> told;
    for (const std::string& text : Told) told.push_back(Without(text));
    for (const String& notice : Windows.Notices) told.push_back(Without(ToUtf8(notice)));
    return told;
  }
};
