#include "platform/system/process.h"

#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

#include "platform/system/posix/sys.h"
#include "platform/system/signals.h"
#include "text/runtime_error.h"

extern char** environ;

namespace {

// What a started program finds: nothing on its standard input, all signals as usual, and a session
// of its own, so that Ctrl+C in the terminal is not for it.
class StartSettings {
 public:
  StartSettings() {
    posix_spawn_file_actions_init(&Files);
    posix_spawn_file_actions_addopen(&Files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawnattr_init(&Attributes);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&Attributes, &signals);
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&Attributes, &signals);
    posix_spawnattr_setflags(&Attributes,
                             POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);
  }
  StartSettings(const StartSettings&) = delete;
  StartSettings& operator=(const StartSettings&) = delete;
  ~StartSettings() {
    posix_spawn_file_actions_destroy(&Files);
    posix_spawnattr_destroy(&Attributes);
  }

  posix_spawn_file_actions_t Files;
  posix_spawnattr_t Attributes;
};

}  // namespace

Process::Process(const String& program, const std::vector<String>& arguments) {
  std::vector<std::string> words{ToUtf8(program)};
  for (const String& argument : arguments) words.push_back(ToUtf8(argument));
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  const StartSettings settings;
  // Ended in between, nobody would know of the program.
  const SignalsHeld held;
  const int error = posix_spawn(&id_, words.front().c_str(), &settings.Files, &settings.Attributes,
                                pointers.data(), environ);
  if (error != 0) sys::Throw(program, error);
  EndOnSignal(id_);
}

Process::Process(Process&& other) noexcept
    : id_(std::exchange(other.id_, 0)), exitCode_(other.exitCode_) {}

Process::~Process() { ExitCode(); }

int Process::ExitCode() {
  if (id_ == 0 || exitCode_ != kStillRunning) return exitCode_;
  int status = 0;
  const SignalsHeld held;
  const pid_t ended = waitpid(id_, &status, WNOHANG);
  if (ended != id_) return exitCode_;
  ForgetOnSignal(id_);
  exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return exitCode_;
}
