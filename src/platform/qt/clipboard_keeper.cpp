#include "platform/qt/clipboard_keeper.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <unistd.h>
#include <utility>

#include "platform/window/window_module.h"

namespace {

constexpr int kHandOverMilliseconds = 5000;

// Both ends of a pipe, closed with the object.
struct Pipe {
  Pipe() {
    if (pipe2(Ends.data(), O_CLOEXEC) != 0) Ends = {-1, -1};
  }
  ~Pipe() {
    Close(0);
    Close(1);
  }
  void Close(std::size_t end) {
    if (Ends[end] >= 0) close(std::exchange(Ends[end], -1));
  }
  std::array<int, 2> Ends{};
};

bool StartKeeper(const Pipe& text, const Pipe& answer) {
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_adddup2(&files, text.Ends[0], STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&files, answer.Ends[1], STDOUT_FILENO);
  // Whoever waits for the end of the program's error output must not wait for the keeper.
  posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
  std::string program = "/proc/self/exe", option = kKeepClipboardOption;
  char* arguments[] = {program.data(), option.data(), nullptr};
  pid_t keeper = 0;
  const bool started =
      posix_spawn(&keeper, program.c_str(), &files, &attributes, arguments, environ) == 0;
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&files);
  return started;
}

void WriteAll(int file, const QByteArray& bytes) {
  for (qsizetype done = 0; done < bytes.size();) {
    const ssize_t written = write(file, bytes.data() + done, bytes.size() - done);
    if (written < 0 && errno != EINTR) return;
    if (written > 0) done += written;
  }
}

}  // namespace

void LeaveClipboardBehind() {
  const QClipboard* clipboard = QGuiApplication::clipboard();
  if (QGuiApplication::platformName() != QLatin1String("xcb") || !clipboard->ownsClipboard())
    return;
  const QByteArray text = clipboard->text().toUtf8();
  Pipe toKeeper, fromKeeper;
  if (text.isEmpty() || fromKeeper.Ends[0] < 0 || toKeeper.Ends[0] < 0) return;
  if (!StartKeeper(toKeeper, fromKeeper)) return;
  // A keeper that dies must not take this program along.
  std::signal(SIGPIPE, SIG_IGN);
  toKeeper.Close(0);
  fromKeeper.Close(1);
  WriteAll(toKeeper.Ends[1], text);
  toKeeper.Close(1);
  // The keeper takes the clipboard from this process, which has to answer meanwhile.
  pollfd answer{fromKeeper.Ends[0], POLLIN, 0};
  constexpr int kStep = 10;
  for (int waited = 0; waited < kHandOverMilliseconds; waited += kStep) {
    if (poll(&answer, 1, kStep) > 0) return;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
}

int KeepClipboard(int& argc, char** argv) {
  QFile input;
  if (!input.open(stdin, QIODevice::ReadOnly)) return 1;
  const QString text = QString::fromUtf8(input.readAll());
  // Whatever volume the program was started on must not stay in use.
  if (chdir("/") != 0) return 1;
  const QApplication application(argc, argv);
  QClipboard* clipboard = QGuiApplication::clipboard();
  clipboard->setText(text);
  const auto leaveWhenTaken = [clipboard] {
    if (!clipboard->ownsClipboard()) QCoreApplication::quit();
  };
  QObject::connect(clipboard, &QClipboard::dataChanged, leaveWhenTaken);
  QCoreApplication::processEvents();
  if (!clipboard->ownsClipboard()) return 1;
  if (write(STDOUT_FILENO, "k", 1) != 1) return 1;
  close(STDOUT_FILENO);
  return QApplication::exec();
}
