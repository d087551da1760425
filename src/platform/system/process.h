#pragma once
// Programs that run beside this one.

#include <vector>

#include "text/text.h"

// A program that was started. It goes on running when the object goes; a signal that ends this
// program ends it as well (signals.h).
class Process {
 public:
  // What ExitCode tells of a program that has not ended.
  static constexpr int kStillRunning = 259;

  // Starts a program by its path, with these arguments and no shell in between; it gets no input.
  // RuntimeError when it can't be started.
  Process(const String& program, const std::vector<String>& arguments);
  Process(Process&& other) noexcept;
  Process& operator=(Process&&) = delete;
  ~Process();

  // 0 to 255 once the program has ended, 128 + the signal if a signal ended it, else kStillRunning.
  int ExitCode();

 private:
  // 0 once the program is another object's.
  int id_ = 0;
  int exitCode_ = kStillRunning;
};

// The arguments of a command line: parted by spaces, those in double quotes are one.
std::vector<String> SplitArguments(StringView commandLine);
