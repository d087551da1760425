#include "platform/console/signals.h"

#include <atomic>
#include <climits>
#include <csignal>
#include <cstring>
#include <unistd.h>

namespace {

// All that a signal handler may look at.
char path[PATH_MAX];
volatile std::sig_atomic_t hasPath = 0;

void RemoveAndEnd(int signal) {
  if (hasPath != 0) unlink(path);
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

}  // namespace

RemovedOnSignal::RemovedOnSignal(const String& file) {
  const std::string bytes = ToUtf8(file);
  if (bytes.size() >= sizeof path) return;
  std::memcpy(path, bytes.c_str(), bytes.size() + 1);
  std::atomic_signal_fence(std::memory_order_release);
  hasPath = 1;
}

RemovedOnSignal::~RemovedOnSignal() { hasPath = 0; }

void TidyUpOnSignals() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    // One that is ignored, as in the background of a shell, stays so.
    if (std::signal(signal, RemoveAndEnd) == SIG_IGN) std::signal(signal, SIG_IGN);
  }
}
