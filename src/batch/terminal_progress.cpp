#include "batch/terminal_progress.h"

#include <ostream>

#include "batch/working2.h"
#include "platform/system/steady_clock.h"

namespace {

constexpr long long kMilliseconds = 100;
constexpr std::size_t kWidth = 78;
constexpr const char* kClearLine = "\r\033[K";

// As much of a text as fits a line, its end: a path is known by that.
String Fitted(String text) {
  for (char16_t& c : text) {
    if (c < u' ') c = u' ';
  }
  return text.size() <= kWidth ? text : u"\u2026" + text.substr(text.size() - kWidth + 1);
}

}  // namespace

void TerminalProgress::File(std::size_t file, std::size_t of) { place_ = FileOf(file, of); }

void TerminalProgress::Status(const String& text) {
  if (!shown_ || (dirty_ && SteadyMilliseconds() - lastShown_ < kMilliseconds)) return;
  lastShown_ = SteadyMilliseconds();
  dirty_ = true;
  out_ << kClearLine << ToUtf8(Fitted(place_.empty() ? text : place_ + u": " + text)) << std::flush;
}

void TerminalProgress::Clear() {
  if (dirty_) out_ << kClearLine << std::flush;
  dirty_ = false;
}
