#include "platform/system/grouped_save.h"

#include <exception>
#include <fcntl.h>
#include <map>
#include <vector>

#include "platform/system/file_copy.h"
#include "platform/system/files.h"
#include "platform/system/posix/leftovers.h"
#include "platform/system/posix/replacement.h"
#include "platform/system/posix/sys.h"
#include "text/runtime_error.h"

namespace {

struct Entry {
  Entry(const String& target, const String& model, const Replacement::OnFolder& onFolder)
      : File(target, model, kGroupPrefix, onFolder) {}

  Replacement File;
  // Of a backup that is the old file itself.
  String Linked;
  bool Flushed = false;
  std::exception_ptr Failure;
};

// Whether the target is what it was when it was added.
bool IsUnchanged(const Entry& entry) {
  struct stat now;
  const struct stat& before = entry.File.Status();
  if (sys::StatLink(entry.File.Target(), now) < 0) return errno == ENOENT && !entry.File.HasOld();
  return entry.File.HasOld() && now.st_dev == before.st_dev && now.st_ino == before.st_ino &&
         now.st_size == before.st_size && now.st_mtim.tv_sec == before.st_mtim.tv_sec &&
         now.st_mtim.tv_nsec == before.st_mtim.tv_nsec &&
         (!entry.File.ByRename() || now.st_nlink == (entry.Linked.empty() ? 1u : 2u));
}

// Parts a backup from its file, so that what is written into that later stays out of it.
void PartBackup(Entry& entry) {
  if (entry.Linked.empty()) return;
  struct stat status;
  const String& target = entry.File.Target();
  if (sys::StatLink(target, status) < 0) {
    if (errno != ENOENT) sys::Throw(target);
  } else if (status.st_dev == entry.File.Status().st_dev &&
             status.st_ino == entry.File.Status().st_ino) {
    CopyOver(target, entry.Linked);
  }
  // Else another program has removed the target, or put a new file in its place.
  entry.Linked.clear();
}

}  // namespace

struct GroupedSave::State {
  Entry& At(std::size_t number) {
    if (number < Entries.size() && Entries[number]) return *Entries[number];
    throw RuntimeError(kInvalidCall, "There is no such file in the group");
  }

  // A file on each file system that has to be flushed, opened before anything was written there, so
  // that all failures are told.
  void Remember(const sys::SharedDescriptor& file, const String& path) {
    struct stat status;
    sys::Check(fstat(file->Get(), &status), path);
    FileSystems.try_emplace(status.st_dev, file);
  }

  void RememberFolder(const String& path) {
    if (path == LastFolder) return;
    Remember(std::make_shared<sys::Descriptor>(sys::Check(sys::Open(path, O_RDONLY), path)), path);
    LastFolder = path;
  }

  Replacement::OnFolder OnFolder;
  std::vector<std::unique_ptr<Entry>> Entries;
  // Those in front have been flushed, committed or dropped.
  std::size_t FirstOpen = 0;
  std::map<dev_t, sys::SharedDescriptor> FileSystems;
  String LastFolder;
};

GroupedSave::GroupedSave(std::function<void(const String& folder)> onFolder)
    : state_(std::make_unique<State>()) {
  state_->OnFolder = std::move(onFolder);
}

GroupedSave::~GroupedSave() {
  for (std::size_t number = 0; number < state_->Entries.size(); ++number) try {
      if (state_->Entries[number]) Drop(number);
    } catch (const std::exception&) {
      // Nobody is left to tell; the target is whole.
    }
}

std::size_t GroupedSave::Add(const String& target, const String& model) {
  state_->Entries.push_back(std::make_unique<Entry>(target, model, state_->OnFolder));
  return state_->Entries.size() - 1;
}

OutputFile GroupedSave::Content(std::size_t number) {
  Replacement& file = state_->At(number).File;
  if (file.ByRename()) state_->Remember(file.Scratch().File(), file.Target());
  return file.Content();
}

bool GroupedSave::BackUp(std::size_t number, const String& backup) {
  Entry& entry = state_->At(number);
  state_->RememberFolder(FolderOf(backup));
  if (entry.File.ByRename() && entry.File.HasOld()) {
    if (sys::Link(entry.File.Target(), backup) == 0) {
      entry.Linked = backup;
      return true;
    }
  }
  return CopyToNewName(entry.File.Target(), backup);
}

void GroupedSave::Flush() {
  State& state = *state_;
  for (std::size_t number = state.FirstOpen; number < state.Entries.size(); ++number) {
    Entry* const entry = state.Entries[number].get();
    if (entry == nullptr) continue;
    try {
      entry->File.Finish();
    } catch (const RuntimeError&) {
      entry->Failure = std::current_exception();
    }
  }
  for (const auto& [device, file] : state.FileSystems)
    if (sys::SyncFileSystem(file->Get()) < 0)
      throw RuntimeError(CodeFromErrno(errno), "The file system can't be flushed");
  for (; state.FirstOpen < state.Entries.size(); ++state.FirstOpen)
    if (const auto& entry = state.Entries[state.FirstOpen]) entry->Flushed = true;
}

void GroupedSave::Commit(std::size_t number) {
  Entry& entry = state_->At(number);
  if (!entry.Flushed) throw RuntimeError(kInvalidCall, "The file is to be flushed first");
  const auto check = [&] {
    if (entry.Failure) std::rethrow_exception(entry.Failure);
    if (IsUnchanged(entry)) return;
    throw RuntimeError(kPathFileAccess, ToUtf8(entry.File.Target()) +
                                            ": another program has changed the file meanwhile");
  };
  try {
    check();
    if (!entry.File.Rename()) {
      PartBackup(entry);
      entry.File.Rewrite();
    }
  } catch (...) {
    Drop(number);
    throw;
  }
  state_->Entries[number].reset();
}

void GroupedSave::Drop(std::size_t number) {
  Entry& entry = state_->At(number);
  const std::unique_ptr<Entry> dropped = std::move(state_->Entries[number]);
  PartBackup(entry);
}

void GroupedSave::RemoveLeftovers(const String& folder) {
  RemoveScratch(folder, String(kGroupPrefix));
}
