#pragma once
// Where this process may keep its temporary files: two running programs never share them.

#include <functional>
#include <memory>

#include "text/text.h"

// The first process holds a lock in the data folder and works right there. Another one gets a
// private subfolder, removed when the object goes; so does each on a file system without locks.
// Subfolders of processes that have died are removed at the start.
class WorkFolder {
 public:
  // Makes the data folder with mode 0700 when it is missing. RuntimeError naming it and
  // the cause when that, or writing in it, fails.
  explicit WorkFolder(const String& dataFolder);
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;
  ~WorkFolder();

  const String& Path() const { return path_; }
  // Whether this process is the one that holds the data folder's lock.
  bool HoldsLock() const;
  // Changes data files under the lock, which this process takes for as long as that lasts if it
  // does not hold it. RuntimeError 70, and nothing is run, while another program holds it. A file
  // system without locks keeps nobody out.
  void WhileLocked(const std::function<void()>& change) const;

 private:
  struct State;
  String path_;
  std::unique_ptr<State> state_;
};
