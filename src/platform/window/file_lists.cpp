#include "platform/window/file_lists.h"

#include <algorithm>

#include "platform/system/files.h"
#include "platform/window/natural_order.h"
#include "text/pattern.h"
#include "text/runtime_error.h"

namespace {

void DropHidden(std::vector<String>& names) {
  std::erase_if(names, [](const String& name) { return name.starts_with(u'.'); });
}

// The current folder can have been deleted.
String StartFolder() {
  try {
    return CurrentFolder();
  } catch (const RuntimeError&) {
    return u"/";
  }
}

bool IsInside(StringView path, StringView folder) {
  if (!path.starts_with(folder)) return false;
  return path.size() == folder.size() || folder.ends_with(kPathSeparator) ||
         path[folder.size()] == kPathSeparator;
}

std::vector<DirListBox::Row> RowsOf(const String& path) {
  auto inside = SubFolders(path);
  DropHidden(inside);
  std::vector<DirListBox::Row> rows{{u"/", u"/", 0}};
  const auto add = [&](const String& folder, StringView name, int depth) {
    rows.push_back({String(name), JoinPath(folder, name), depth});
  };
  StringView rest = path;
  while (!rest.empty()) {
    const StringView name = rest.substr(0, rest.find(kPathSeparator));
    rest.remove_prefix(std::min(name.size() + 1, rest.size()));
    if (!name.empty()) add(rows.back().Path, name, rows.back().Depth + 1);
  }
  const int depth = rows.back().Depth + 1;
  for (const String& name : inside) add(path, name, depth);
  return rows;
}

}  // namespace

DriveListBox::DriveListBox() {
  Refresh();
  changed_ = Drive.Observe([this] {
    const String volume = VolumeOf(Drive);
    // Comes back here with the volume.
    if (volume != Drive.Get())
      Drive = volume;
    else if (OnChange)
      OnChange();
  });
}

void DriveListBox::Refresh() {
  List = Volumes();
  if (Drive.Get().empty()) Drive = VolumeOf(StartFolder());
}

String DriveListBox::VolumeOf(const String& path) const {
  const String* best = nullptr;
  for (const String& volume : List.Get())
    if (IsInside(path, volume) && (!best || volume.size() > best->size())) best = &volume;
  return best ? *best : path;
}

DirListBox::DirListBox() {
  Path = StartFolder();
  changed_ = Path.Observe([this] {
    if (OnChange) OnChange();
  });
}

void DirListBox::Go(const String& path) {
  const String folder = AbsolutePath(path);
  auto rows = RowsOf(folder);
  const auto own =
      std::find_if(rows.begin(), rows.end(), [&](const Row& row) { return row.Path == folder; });
  const int index = static_cast<int>(own - rows.begin());
  // Never the row of another list.
  ListIndex = -1;
  Rows = std::move(rows);
  ListIndex = index;
  Path = folder;
}

String DirListBox::Highlighted() const {
  const auto& rows = Rows.Get();
  const int index = ListIndex;
  return index >= 0 && index < static_cast<int>(rows.size())
             ? rows[static_cast<std::size_t>(index)].Path
             : Path.Get();
}

FileListBox::FileListBox() {
  Path = StartFolder();
  pathChanged_ = Path.Observe([this] { Refresh(); });
  patternChanged_ = Pattern.Observe([this] { Refresh(); });
  indexChanged_ = ListIndex.Observe([this] {
    if (OnClick) OnClick();
  });
}

std::vector<String> FittingFiles(const String& folder, StringView pattern, bool naturalOrder) {
  std::vector<String> names = FilesIn(folder);
  if (pattern != kEveryFile) {
    DropHidden(names);
    std::erase_if(names, [&](const String& name) { return !FitsPattern(name, pattern); });
  }
  if (naturalOrder) SortNaturally(names);
  return names;
}

void FileListBox::Refresh() {
  std::vector<String> names;
  try {
    names = FittingFiles(Path, Pattern.Get(), NaturalOrder);
  } catch (const RuntimeError&) {
    // A folder that can't be read shows no files.
  }
  if (names == List.Get()) return;
  Selected = std::set<int>{};
  ListIndex = -1;
  List = std::move(names);
}
