#include "batch/scratch_places.h"

#include "platform/system/byte_file.h"
#include "platform/system/files.h"
#include "platform/system/grouped_save.h"

namespace {

constexpr StringView kPlacesName = u"WFMFFTMP.DAT";
// Tells it from a backup of that name.
constexpr std::string_view kFirstLine = "Folders with unfinished files\n";

}  // namespace

ScratchPlaces::ScratchPlaces(const String& runFolder) : path_(JoinPath(runFolder, kPlacesName)) {
  try {
    file_.emplace(path_);
    file_->Append(kFirstLine);
  } catch (const std::exception&) {
    file_.reset();
  }
}

ScratchPlaces::~ScratchPlaces() {
  if (!file_) return;
  file_.reset();
  DeleteFileQuietly(path_);
}

void ScratchPlaces::Note(const String& folder) noexcept {
  try {
    if (file_ && known_.insert(folder).second) file_->Append(ToUtf8(folder) + '\0');
  } catch (const std::exception&) {
    // One more name that stays after a kill.
  }
}

void RemoveScratchOf(const String& runFolder) noexcept {
  try {
    const String path = JoinPath(runFolder, kPlacesName);
    if (!FileExists(path)) return;
    std::string bytes;
    InputFile(path).ReadRest([&bytes](std::string_view block) { bytes += block; });
    std::string_view rest = bytes;
    if (!rest.starts_with(kFirstLine)) return;
    rest.remove_prefix(kFirstLine.size());
    for (std::size_t end; (end = rest.find('\0')) != std::string_view::npos;) {
      GroupedSave::RemoveLeftovers(FromUtf8(rest.substr(0, end)));
      rest.remove_prefix(end + 1);
    }
    DeleteFile(path);
  } catch (const std::exception&) {
    // They are in nobody's way.
  }
}
