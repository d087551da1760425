#include "platform/system/signals.h"

#include <atomic>
#include <climits>
#include <csignal>
#include <cstring>
#include <iterator>
#include <type_traits>
#include <unistd.h>

namespace {

constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP};

// All that a signal handler may look at.
char path[PATH_MAX];
volatile std::sig_atomic_t hasPath = 0;
volatile std::sig_atomic_t heldSignal = 0;

void RemoveAndEnd(int signal) {
  if (hasPath != 0) unlink(path);
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void Hold(int signal) { heldSignal = signal; }

// One that is ignored, as in the background of a shell, stays so.
auto Handle(int signal, void (*handler)(int)) {
  const auto before = std::signal(signal, handler);
  if (before == SIG_IGN) std::signal(signal, SIG_IGN);
  return before;
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
  for (const int signal : kEndingSignals) Handle(signal, RemoveAndEnd);
}

SignalsHeld::SignalsHeld() {
  static_assert(std::size(kEndingSignals) == std::extent_v<decltype(handlers_)>);
  heldSignal = 0;
  for (std::size_t i = 0; i < std::size(kEndingSignals); ++i)
    handlers_[i] = Handle(kEndingSignals[i], Hold);
}

SignalsHeld::~SignalsHeld() {
  for (std::size_t i = 0; i < std::size(kEndingSignals); ++i)
    std::signal(kEndingSignals[i], handlers_[i]);
  if (heldSignal != 0) std::raise(heldSignal);
}
