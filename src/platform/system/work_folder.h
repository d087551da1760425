#pragma once
// Where this process may keep files that need a name, and the lock on what programs share.

#include <functional>
#include <memory>

#include "text/text.h"

// Held as long as the object or a copy of it lives, and by this process only.
class DataLock {
 public:
  DataLock() = default;

 private:
  friend class WorkFolder;
  explicit DataLock(std::shared_ptr<const void> held) : held_(std::move(held)) {}
  std::shared_ptr<const void> held_;
};

// A folder of this process alone in the data folder, mode 0700. It goes with all that is in it when
// the object goes or a signal ends the program; after a kill, at the next start.
class WorkFolder {
 public:
  // Tells the names of files that the program makes in its work folder.
  using IsWorkFile = std::function<bool(StringView name)>;

  // Makes the data folder with mode 0700 when it is missing. Removes what dead processes have left:
  // work files, and folders with a process number in their name that hold nothing else.
  // RuntimeError naming the data folder and the cause when it can't be made or written.
  WorkFolder(const String& dataFolder, const IsWorkFile& isWorkFile);
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;
  ~WorkFolder();

  const String& Path() const { return path_; }
  // Keeps other programs from changing the data files. Taken again by its holder it is the same
  // lock. RuntimeError 70 while another program holds it. A file system without locks keeps nobody
  // out.
  DataLock Lock() const;
  // Changes data files under the lock; nothing is run where it can't be had.
  void WhileLocked(const std::function<void()>& change) const;

 private:
  struct State;
  String path_;
  std::unique_ptr<State> state_;
};
