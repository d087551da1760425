#include "platform/system/signals.h"

#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>

#include "platform/system/files.h"
#include "platform/system/process.h"
#include "platform/system/work_file.h"
#include "platform/system/work_folder.h"
#include "platform/test_folder.h"

namespace {

namespace fs = std::filesystem;

// What a process that is ended by a signal leaves, and the signal that it tells of.
int SignalOf(const std::function<void()>& action) {
  const pid_t child = fork();
  if (child == 0) {
    action();
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

TEST(Signals, LeaveNoTextAndNoProgram) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const TestFolder folder;
    folder.Put("program", "#!/bin/sh\necho $$ >\"$1\"\nsleep 60 & wait\n");
    fs::permissions(folder.Path / "program", fs::perms(0700));
    fs::create_directory(folder.Path / "data");
    EXPECT_EQ(SignalOf([&] {
                PrepareProcess();
                const WorkFolder work(folder / "data", [](StringView) { return true; });
                OutputFile(JoinPath(work.Path(), u"WFTEMP1.DAT")).Write("text");
                OutputFile(JoinPath(work.Path(), u"of a program")).Write("text");
                WorkFile nameless(work.Path());
                nameless.Write().Write("text");
                { const Process left(folder / "program", {folder / "id"}); }
                while (folder.Get("id").empty()) usleep(5000);
                // What it has forked is no reason for a process to lose what it has.
                if (fork() == 0) raise(signal);
                wait(nullptr);
                if (!FileExists(JoinPath(work.Path(), u"WFTEMP1.DAT"))) _exit(1);
                raise(signal);
              }),
              signal);
    EXPECT_TRUE(fs::is_empty(folder.Path / "data"));
    EXPECT_EQ(kill(std::stoi(folder.Get("id")), 0), -1);
  }
}

TEST(Signals, IgnoredOnesStayIgnored) {
  EXPECT_EQ(SignalOf([] {
              std::signal(SIGHUP, SIG_IGN);
              PrepareProcess();
              { const SignalsHeld held; }
              raise(SIGHUP);
              {
                const SignalsHeld outer;
                {
                  const SignalsHeld inner;
                  raise(SIGTERM);
                }
                raise(SIGXFSZ);
              }
              _exit(0);
            }),
            SIGTERM);
}

TEST(Signals, TheFirstFileThatIsOpenedIsNotStandardError) {
  const TestFolder folder;
  EXPECT_EQ(InChild([&] {
              for (int descriptor = 0; descriptor <= 2; ++descriptor) close(descriptor);
              PrepareProcess();
              OutputFile file(folder / "file");
              std::ignore = write(2, "message", 7);
            }),
            0);
  EXPECT_EQ(folder.Get("file"), "");
}

}  // namespace
