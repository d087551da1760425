#include "platform/window/window_module.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>
#include <string>

#include "text/runtime_error.h"

namespace {

// Sets or, with null, removes a variable of the environment for a while.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    Set(value);
  }
  ~Variable() { Set(before_ ? before_->c_str() : nullptr); }

 private:
  void Set(const char* value) { value ? setenv(name_, value, 1) : unsetenv(name_); }
  const char* name_;
  std::optional<std::string> before_;
};

std::string RefusalWith(const char* display, const char* platform) {
  const Variable x11("DISPLAY", display);
  const Variable wayland("WAYLAND_DISPLAY", nullptr);
  const Variable qt("QT_QPA_PLATFORM", platform);
  int argc = 0;
  try {
    LoadWindowSystem(argc, nullptr);
  } catch (const RuntimeError& error) {
    return error.what();
  }
  return "";
}

TEST(WindowModule, IsRefusedInOneLineThatTellsWhy) {
  for (const char* platform : {static_cast<const char*>(nullptr), "xcb"})
    EXPECT_EQ(RefusalWith(nullptr, platform).find("No display"), 0u);
  for (const char* platform : {static_cast<const char*>(nullptr), "xcb"})
    EXPECT_EQ(RefusalWith(":987", platform).find("Can't connect to the display \":987\""), 0u);
  // No module stands beside the tests.
  EXPECT_NE(RefusalWith(nullptr, "offscreen:size=800x600").find("wordflurn-qt.so"),
            std::string::npos);
}

}  // namespace
