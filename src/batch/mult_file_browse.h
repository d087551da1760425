#pragma once
// Step 2 of the wizard: the files.

#include <memory>

#include "batch/folder_search.h"
#include "batch/list_file.h"
#include "batch/mult_file_bad.h"
#include "platform/window/common_dialog.h"
#include "platform/window/file_lists.h"

class MultFileBrowse : public Form {
 public:
  MultFileBrowse(WindowSystem& windows, Messages& messages);
  Layout Content() override;
  void CloseByFrame() override { Command2.Click(); }
  void Activated() override { Refresh(); }
  bool TakesDrops() const override { return true; }
  // Files join the list; folders with all that fits the pattern, after a question.
  void DropFiles(const std::vector<String>& paths) override;

  // Reads volumes, folders and files anew.
  void Refresh();

  // Goes on with the next step.
  std::function<void()> OnNext;
  // The list file that was loaded last, and its names that could not be opened, parted by CR LF.
  String ListFilePath;
  String BadFileNames;
  bool WizardCancelled = false;

 private:
  const std::unique_ptr<CommonDialog> commonDialog1_;

 public:
  ::MultFileBad MultFileBad;
  CommonDialog& CommonDialog1;
  DriveListBox Drive1;
  DirListBox Dir1;
  FileListBox File1;
  Label Label2;
  ComboBox Combo1;
  CommandButton Command3;
  CommandButton Command8;
  // "Add All Files" takes those of the folders inside the folder as well.
  CheckBox Check1;
  Label Label1;
  // How many files the list holds, and what is going on.
  Label Label3;
  ListBox List1;
  CommandButton Command4;
  CommandButton Command5;
  CommandButton Command6;
  CommandButton Command7;
  CommandButton Command1;
  CommandButton Command2;

 protected:
  void Load() override;

 private:
  void WireLists();
  void WireButtons();
  void GoToDrive();
  void FollowFolder();
  void RefreshFolders();

  void Add(const std::vector<String>& paths);
  void AddSelected();
  void AddAll();
  void RemoveSelected();
  // Puts other rows into the list; none of them is selected.
  void ShowRows(std::vector<String> rows);
  // False when the user has ended the search.
  bool Search(const std::vector<String>& folders, FoundFiles& found);
  void Enable(bool enabled);
  void TellUnreadable(const FoundFiles& found);

  void SaveList();
  void LoadList();
  void RewriteListFile();
  void Next();
  void Cancel();
  void ShowCount();

  Messages& messages_;
  Signal::Subscription listChanged_;
  // Drive1 is being set to the volume of the folder.
  bool driveFollows_ = false;
  bool searching_ = false;
  bool searchCancelled_ = false;
};
