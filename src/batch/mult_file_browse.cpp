#include "batch/mult_file_browse.h"

#include <unordered_set>

#include "batch/working2.h"
#include "platform/system/files.h"
#include "platform/window/window_system.h"
#include "text/runtime_error.h"
#include "text/scoped_value.h"

namespace {

constexpr StringView kListFilter = u"WordFlurn File List (*.wff)|*.wff|All Files (*.*)|*.*";

// Names in the window of those that could not be opened.
constexpr std::size_t kMostBadNames = 5000;

class Hourglass {
 public:
  explicit Hourglass(Form& form) : form_(form) { form_.Busy = true; }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
  ~Hourglass() { form_.Busy = false; }

 private:
  Form& form_;
};

String Files(std::size_t count) { return Grouped(count) + (count == 1 ? u" file" : u" files"); }

String InLines(const std::vector<String>& names) {
  String lines;
  for (std::size_t i = 0; i < std::min(names.size(), kMostBadNames); ++i) {
    if (i > 0) lines += kCrLf;
    lines += names[i];
  }
  if (names.size() > kMostBadNames)
    lines += String(kCrLf) + u"and " + Files(names.size() - kMostBadNames) + u" more";
  return lines;
}

}  // namespace

MultFileBrowse::MultFileBrowse(WindowSystem& windows, Messages& messages)
    : Form(windows),
      commonDialog1_(windows.CreateCommonDialog()),
      MultFileBad(windows),
      CommonDialog1(*commonDialog1_),
      messages_(messages) {
  Caption = u"Step 2: Select Files to Flurn";
  Label1.Caption = u"Files to Flurn:";
  Label2.Caption = u"Files of type:";
  Label3.WordWrap = true;
  Check1.Caption = u"&Include subfolders";
  WireLists();
  WireButtons();
  ShowCount();
  MultFileBad.OnRemove = [this] { RewriteListFile(); };
  Columns = 100;
  Lines = 36;
}

void MultFileBrowse::WireLists() {
  Drive1.AccessibleName = u"Volume";
  Dir1.AccessibleName = u"Folder";
  File1.AccessibleName = u"Files in the folder";
  Drive1.OnChange = [this] { GoToDrive(); };
  Dir1.OnChange = [this] { FollowFolder(); };
  File1.MultiSelect = true;
  File1.NaturalOrder = true;
  File1.OnDblClick = [this] { Command3.Click(); };
  Combo1.OnClick = [this] {
    File1.Pattern =
        String(FilePatterns()[static_cast<std::size_t>(Combo1.ListIndex.Get())].Pattern);
  };
  List1.Style = ListBox::Marks::MultiSelect;
  List1.OnDblClick = [this] { Command4.Click(); };
  listChanged_ = List1.List.Observe([this] { ShowCount(); });
}

void MultFileBrowse::WireButtons() {
  const struct {
    CommandButton& Button;
    StringView Caption;
    void (MultFileBrowse::*Run)();
  } buttons[] = {
      {Command3, u"Add S&elected File(s) to the List", &MultFileBrowse::AddSelected},
      {Command8, u"Add All &Files", &MultFileBrowse::AddAll},
      {Command4, u"&Delete Selected File(s) from the List", &MultFileBrowse::RemoveSelected},
      {Command6, u"&Load from file", &MultFileBrowse::LoadList},
      {Command7, u"&Save to file", &MultFileBrowse::SaveList},
      {Command1, u"&Next", &MultFileBrowse::Next},
      {Command2, u"C&ancel", &MultFileBrowse::Cancel},
  };
  for (const auto& [button, caption, run] : buttons) {
    button.Caption = String(caption);
    button.OnClick = [this, run = run] { (this->*run)(); };
  }
  Command5.Caption = u"&Clear List";
  Command5.OnClick = [this] { ShowRows({}); };
  Command1.Default = true;
  Command2.Cancel = true;
}

Layout MultFileBrowse::Content() {
  return Column({Row({Column({Drive1, Dir1}), File1}), Row({Label2, Combo1, Stretch()}),
                 Row({Command3, Command8, Check1, Stretch()}), Row({Label1, Label3}), List1,
                 Row({Command4, Command5, Command6, Command7, Stretch()}),
                 Row({Stretch(), Command1, Command2, Stretch()})});
}

void MultFileBrowse::Load() {
  std::vector<String> names;
  for (const FilePattern& pattern : FilePatterns()) names.emplace_back(pattern.Name);
  Combo1.List = std::move(names);
  Combo1.ListIndex = 0;
  File1.Pattern = String(FilePatterns().front().Pattern);
  Refresh();
}

void MultFileBrowse::Refresh() {
  if (searching_) return;
  Drive1.Refresh();
  RefreshFolders();
  FollowFolder();
  File1.Refresh();
}

void MultFileBrowse::RefreshFolders() {
  const String highlighted = Dir1.Highlighted();
  // A folder that has gone leaves the nearest one above it.
  for (String path = Dir1.Path;; path = FolderOf(path)) {
    try {
      Dir1.Go(path);
      break;
    } catch (const RuntimeError&) {
      if (path == u"/") break;
    }
  }
  const auto& rows = Dir1.Rows.Get();
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (rows[i].Path == highlighted) Dir1.ListIndex = static_cast<int>(i);
}

void MultFileBrowse::GoToDrive() {
  if (driveFollows_) return;
  try {
    Dir1.Go(Drive1.Drive);
  } catch (const RuntimeError&) {
    messages_.Notice(u" There is no disk in the drive / device unavailable.");
    FollowFolder();
  }
}

void MultFileBrowse::FollowFolder() {
  const ScopedValue follows(driveFollows_, true);
  File1.Path = Dir1.Path.Get();
  Drive1.Drive = Dir1.Path.Get();
}

void MultFileBrowse::Add(const std::vector<String>& paths) {
  std::vector<String> rows = List1.List;
  // The rows stay where they are: they are looked at.
  rows.reserve(rows.size() + paths.size());
  std::unordered_set<StringView> known(rows.begin(), rows.end());
  for (const String& path : paths)
    if (known.insert(path).second) rows.push_back(path);
  List1.List = std::move(rows);
}

void MultFileBrowse::AddSelected() {
  const Hourglass hourglass(*this);
  std::vector<String> paths;
  const auto& names = File1.List.Get();
  for (const int row : File1.Selected.Get())
    if (row >= 0 && row < File1.ListCount())
      paths.push_back(JoinPath(File1.Path.Get(), names[static_cast<std::size_t>(row)]));
  Add(paths);
}

void MultFileBrowse::AddAll() {
  const Hourglass hourglass(*this);
  if (Check1.Value == 1) {
    FoundFiles found;
    if (!Search({File1.Path}, found)) return;
    Add(found.Files);
    return TellUnreadable(found);
  }
  std::vector<String> paths;
  for (const String& name : File1.List.Get()) paths.push_back(JoinPath(File1.Path.Get(), name));
  Add(paths);
}

void MultFileBrowse::RemoveSelected() {
  if (List1.ListIndex == -1) return;
  const auto& selected = List1.Selected.Get();
  const auto& rows = List1.List.Get();
  std::vector<String> left;
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (!selected.contains(static_cast<int>(i))) left.push_back(rows[i]);
  ShowRows(std::move(left));
}

void MultFileBrowse::ShowRows(std::vector<String> rows) {
  List1.ListIndex = -1;
  List1.Selected = std::set<int>{};
  List1.List = std::move(rows);
}

bool MultFileBrowse::Search(const std::vector<String>& folders, FoundFiles& found) {
  constexpr int kLookMilliseconds = 100;
  const ScopedValue searching(searching_, true);
  searchCancelled_ = false;
  Enable(false);
  long long next = 0;
  const auto goesOn = [&](std::size_t count) {
    if (Windows().Milliseconds() < next) return true;
    Label3.Caption = u"Found " + Files(count) + u"...";
    Windows().DoEvents();
    next = Windows().Milliseconds() + kLookMilliseconds;
    return !searchCancelled_;
  };
  bool whole = true;
  for (const String& folder : folders)
    whole = whole && FindFiles(folder, File1.Pattern.Get(), found, goesOn);
  Enable(true);
  ShowCount();
  return whole;
}

// All but Cancel, which then ends the search.
void MultFileBrowse::Enable(bool enabled) {
  for (Control* control : std::initializer_list<Control*>{
           &Drive1, &Dir1, &File1, &Combo1, &Command3, &Command8, &Check1, &List1, &Command4,
           &Command5, &Command6, &Command7, &Command1})
    control->Enabled = enabled;
}

void MultFileBrowse::TellUnreadable(const FoundFiles& found) {
  if (found.Unreadable == 0) return;
  const bool one = found.Unreadable == 1;
  messages_.Notice(Grouped(found.Unreadable) +
                   (one ? u" folder could not be read.  Its files are not in the list."
                        : u" folders could not be read.  Their files are not in the list."));
}

void MultFileBrowse::DropFiles(const std::vector<String>& paths) {
  if (searching_) return;
  const Hourglass hourglass(*this);
  std::vector<String> files, folders;
  for (const String& path : paths) {
    if (FolderExists(path))
      folders.push_back(path);
    else if (FileExists(path))
      files.push_back(path);
  }
  Add(files);
  FoundFiles found;
  if (folders.empty() || !Search(folders, found)) return;
  const String holds = folders.size() == 1 ? u"The folder holds " : u"The folders hold ";
  const String kind = u" of the type \"" + Combo1.Text.Get() + u"\"";
  if (found.Files.empty())
    messages_.Notice(holds + u"no files" + kind + u".");
  else if (messages_.Ask(holds + Files(found.Files.size()) + kind +
                         u".  Do you want to add them to the list?") == Answer::Yes)
    Add(found.Files);
  else
    return;
  TellUnreadable(found);
}

void MultFileBrowse::SaveList() {
  if (List1.ListCount() == 0)
    return messages_.Notice(
        u"You have not selected any files and therefore cannot save a list of selected files.");
  CommonDialog1.DialogTitle = u"Save List of Files As";
  CommonDialog1.Flags = CommonDialog::kHideReadOnly | CommonDialog::kOverwritePrompt;
  CommonDialog1.Filter = kListFilter;
  CommonDialog1.FilterIndex = 1;
  if (CommonDialog1.FileName.empty()) CommonDialog1.FileName = u"files.wff";
  try {
    CommonDialog1.ShowSave();
    WriteListFile(CommonDialog1.FileName, List1.List);
  } catch (const RuntimeError& error) {
    if (error.Code != kDialogCancelled) Label3.Caption = u"Not saved: " + FromUtf8(error.what());
  }
}

void MultFileBrowse::LoadList() {
  CommonDialog1.DialogTitle = u"Load List of Files";
  CommonDialog1.Flags = CommonDialog::kHideReadOnly;
  CommonDialog1.Filter = kListFilter;
  CommonDialog1.FilterIndex = 1;
  if (!CommonDialog1.AskForFile()) return;
  FileList list;
  try {
    const Hourglass hourglass(*this);
    Windows().DoEvents();
    list = ReadListFile(CommonDialog1.FileName);
  } catch (const std::exception& error) {
    return messages_.Notice(FromUtf8(error.what()));
  }
  ListFilePath = CommonDialog1.FileName;
  ShowRows(std::move(list.Files));
  BadFileNames = InLines(list.Missing);
  if (list.Missing.empty()) return;
  MultFileBad.BadFileNames = BadFileNames;
  MultFileBad.ShowModal();
}

void MultFileBrowse::RewriteListFile() {
  try {
    WriteListFile(ListFilePath, List1.List);
  } catch (const std::exception&) {
    return messages_.Notice(
        u"Error encountered while trying to remove the files from the file list.");
  }
  messages_.Notice(
      u"OK. The file(s) have been removed from the file list.  These file(s) will no longer be "
      u"attempted to be added to the list when loading this file.");
}

void MultFileBrowse::Next() {
  if (List1.ListCount() == 0)
    return messages_.Notice(
        u"You cannot continue to Step 3 until you select the files that you want to flurn.");
  WizardCancelled = false;
  Hide();
  OnNext();
}

void MultFileBrowse::Cancel() {
  if (searching_) {
    searchCancelled_ = true;
    return;
  }
  ShowRows({});
  WizardCancelled = true;
  Hide();
}

void MultFileBrowse::ShowCount() {
  Label3.Caption = Files(static_cast<std::size_t>(List1.ListCount()));
}
