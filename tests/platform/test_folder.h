#pragma once
// A folder of its own for each test, looked at with the standard library alone.

#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <sstream>
#include <stdlib.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "text/runtime_error.h"
#include "text/text.h"

// For tests that save hundreds of times and need not wait for a disk.
inline const std::string kMemory =
    std::filesystem::exists("/dev/shm") ? "/dev/shm" : ::testing::TempDir();

class TestFolder {
 public:
  explicit TestFolder(std::string parent = ::testing::TempDir()) {
    parent += "/files-test-XXXXXX";
    if (!mkdtemp(parent.data())) std::abort();
    Path = std::filesystem::canonical(parent);
  }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;
  ~TestFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(Path, ignored);
  }

  String operator/(const std::string& name) const { return FromUtf8((Path / name).native()); }
  void Put(const std::string& name, const std::string& content) const {
    std::ofstream(Path / name, std::ios::binary) << content;
  }
  std::string Get(const std::string& name) const {
    std::ostringstream content;
    content << std::ifstream(Path / name, std::ios::binary).rdbuf();
    return content.str();
  }
  std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Path))
      names.insert(entry.path().filename().native());
    return names;
  }

  std::filesystem::path Path;
};

// Runs an action in a process of its own and returns its exit status: 0 when the action returns.
inline int InChild(const std::function<void()>& action) {
  const pid_t child = fork();
  if (child == 0) {
    try {
      action();
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
    }
    _exit(::testing::Test::HasFailure() ? 1 : 0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// The code of the RuntimeError that an action ends with, 0 when it ends without one.
inline int CodeOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.Code;
  }
  return 0;
}
