#pragma once
// What the program leaves behind when it is ended from outside by SIGINT, SIGTERM or SIGHUP.

#include <cstddef>
#include <memory>

#include "text/text.h"

// For the start of main, before anything is opened: descriptors 0 to 2 are open, so that no file
// becomes standard error; a limit on file sizes is an error like a full disk and no end; from now
// on the three signals end the started programs and remove what is registered here before they end
// this one as they always do. One that is ignored, as in the background of a shell, stays so.
void PrepareProcess();

// A file, or a folder with the files in it, that goes when a signal ends the program while the
// object lives. Register it before it is made. For this process only, not for those it forks.
class RemovedOnSignal {
 public:
  enum class Kind { File, Folder };
  explicit RemovedOnSignal(const String& path, Kind kind = Kind::File);
  RemovedOnSignal(const RemovedOnSignal&) = delete;
  RemovedOnSignal& operator=(const RemovedOnSignal&) = delete;
  ~RemovedOnSignal();

  struct Entry;

 private:
  std::unique_ptr<Entry> entry_;
};

// Such a signal waits until the object goes; until the outermost one goes, if there are more.
class SignalsHeld {
 public:
  SignalsHeld();
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;
  ~SignalsHeld();
};

// A started program and what it has started, ended with this one from now on; until it is
// forgotten, which must be before its number can be another's.
void EndOnSignal(int process);
void ForgetOnSignal(int process);
