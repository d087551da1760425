#include "platform/system/signals.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <iterator>
#include <string>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

// What a signal handler looks at changes by one word at a time and is whole at every moment.
struct RemovedOnSignal::Entry {
  std::string Path;
  bool IsFolder = false;
  pid_t Owner = getpid();
  std::atomic<Entry*> Next = nullptr;

  static std::atomic<Entry*> First;
  static void RemoveAll();
};

std::atomic<RemovedOnSignal::Entry*> RemovedOnSignal::Entry::First = nullptr;

namespace {

constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP};

void (*handlersBefore[std::size(kEndingSignals)])(int);
volatile std::sig_atomic_t timesHeld = 0;
volatile std::sig_atomic_t heldSignal = 0;

// More run at once only where one after the other has not returned in its time.
std::atomic<pid_t> programs[16];
pid_t programsOwner = 0;

// The library's ways of listing a folder allocate.
void RemoveFilesIn(const char* folder) {
  struct Name {
    std::uint64_t Inode;
    std::int64_t Offset;
    unsigned short Length;
    unsigned char Type;
    char Bytes[1];
  };
  const int descriptor = open(folder, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
  if (descriptor < 0) return;
  alignas(Name) char block[8192];
  for (;;) {
    const long size = syscall(SYS_getdents64, descriptor, block, sizeof block);
    if (size <= 0) break;
    for (long at = 0; at < size;) {
      const Name* name = reinterpret_cast<const Name*>(block + at);
      unlinkat(descriptor, name->Bytes, 0);
      at += name->Length;
    }
  }
  close(descriptor);
}

// Asks them, and ends those that have not gone a moment later. Each leads a group of its own.
void EndPrograms() {
  if (programsOwner != getpid()) return;
  for (const auto& program : programs)
    if (const pid_t id = program; id > 0) kill(-id, SIGTERM);
  for (const auto& program : programs) {
    const pid_t id = program;
    if (id <= 0) continue;
    for (int pause = 0; pause < 50 && waitpid(id, nullptr, WNOHANG) == 0; ++pause) {
      const timespec moment{0, 10'000'000};
      nanosleep(&moment, nullptr);
    }
    kill(-id, SIGKILL);
  }
}

void TidyUpAndEnd(int signal) {
  EndPrograms();
  RemovedOnSignal::Entry::RemoveAll();
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void Hold(int signal) { heldSignal = signal; }

auto Handle(int signal, void (*handler)(int)) {
  const auto before = std::signal(signal, handler);
  if (before == SIG_IGN) std::signal(signal, SIG_IGN);
  return before;
}

}  // namespace

void RemovedOnSignal::Entry::RemoveAll() {
  for (const Entry* entry = First; entry != nullptr; entry = entry->Next) {
    if (entry->Owner != getpid()) continue;
    if (!entry->IsFolder) {
      unlink(entry->Path.c_str());
      continue;
    }
    RemoveFilesIn(entry->Path.c_str());
    rmdir(entry->Path.c_str());
  }
}

RemovedOnSignal::RemovedOnSignal(const String& path, Kind kind) : entry_(new Entry) {
  entry_->Path = ToUtf8(path);
  entry_->IsFolder = kind == Kind::Folder;
  entry_->Next = Entry::First.load();
  Entry::First = entry_.get();
}

RemovedOnSignal::~RemovedOnSignal() {
  std::atomic<Entry*>* place = &Entry::First;
  while (*place != entry_.get()) place = &place->load()->Next;
  *place = entry_->Next.load();
}

void PrepareProcess() {
  int descriptor = 0;
  while (descriptor >= 0 && descriptor <= STDERR_FILENO) descriptor = open("/dev/null", O_RDWR);
  if (descriptor >= 0) close(descriptor);
  std::signal(SIGXFSZ, SIG_IGN);
  for (const int signal : kEndingSignals) Handle(signal, TidyUpAndEnd);
}

SignalsHeld::SignalsHeld() {
  timesHeld = timesHeld + 1;
  if (timesHeld > 1) return;
  heldSignal = 0;
  for (std::size_t i = 0; i < std::size(kEndingSignals); ++i)
    handlersBefore[i] = Handle(kEndingSignals[i], Hold);
}

SignalsHeld::~SignalsHeld() {
  timesHeld = timesHeld - 1;
  if (timesHeld > 0) return;
  for (std::size_t i = 0; i < std::size(kEndingSignals); ++i)
    std::signal(kEndingSignals[i], handlersBefore[i]);
  if (heldSignal != 0) std::raise(heldSignal);
}

void EndOnSignal(int process) {
  programsOwner = getpid();
  for (auto& program : programs) {
    if (program != 0) continue;
    program = process;
    return;
  }
}

void ForgetOnSignal(int process) {
  for (auto& program : programs)
    if (program == process) program = 0;
}
