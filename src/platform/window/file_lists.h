#pragma once
// The lists of volumes, folders and files.

#include "platform/window/controls.h"

// Fits every name, of hidden files as well.
inline constexpr StringView kEveryFile = u"*.*";

// The root, the home folder and the mounted volumes.
struct DriveListBox : Control {
  void Accept(ControlVisitor& visitor) override;
  // Reads the volumes anew.
  void Refresh();
  // The mount points, in the order shown.
  Property<std::vector<String>> List;
  // The chosen mount point, at first that of the current folder. Another path set here chooses the
  // volume that it lies on.
  Property<String> Drive;
  std::function<void()> OnChange;
  DriveListBox();
  // The innermost of the volumes shown that a path lies on; the path itself when there is none.
  String VolumeOf(const String& path) const;

 private:
  Signal::Subscription changed_;
};

// The folders above a folder, the folder itself, and those inside it but for hidden ones.
struct DirListBox : Control {
  struct Row {
    String Name;
    String Path;
    // Steps from the root, for the indent.
    int Depth = 0;
    bool operator==(const Row&) const = default;
  };

  DirListBox();
  void Accept(ControlVisitor& visitor) override;
  // Goes to a folder. RuntimeError 76 when it is not there, 70 when it may not be read, and
  // the list stays.
  void Go(const String& path);
  // Where it stands; changed by Go alone. At first the current folder, whose rows Go reads.
  Property<String> Path;
  Property<std::vector<Row>> Rows;
  // The highlighted row, after Go that of the folder itself; -1 before.
  Property<int> ListIndex{-1};
  // The folder of the highlighted row; Path when there is none.
  String Highlighted() const;
  std::function<void()> OnChange;

 private:
  Signal::Subscription changed_;
};

// The names of a folder's files that fit a pattern (see FileListBox), sorted. RuntimeError for a
// folder that can't be read.
std::vector<String> FittingFiles(const String& folder, StringView pattern, bool naturalOrder);

// The files of a folder whose names fit a pattern, sorted. Hidden ones show by "*.*" alone. Empty
// for a folder that can't be read.
struct FileListBox : ListControl {
  FileListBox();
  void Accept(ControlVisitor& visitor) override;
  // Reads the folder anew. The selection stays when the files are the same.
  void Refresh();
  // At first the current folder, which Refresh reads.
  Property<String> Path;
  // Patterns with "*" and "?" parted by ";", in any case; "*.*" fits every name.
  Property<String> Pattern{String(kEveryFile)};
  bool MultiSelect = false;
  // In the order of the user's locale, numbers in names by their value; else by characters.
  bool NaturalOrder = false;
  Property<std::set<int>> Selected;
  std::function<void()> OnClick;
  std::function<void()> OnDblClick;

 private:
  Signal::Subscription pathChanged_;
  Signal::Subscription patternChanged_;
  Signal::Subscription indexChanged_;
};
