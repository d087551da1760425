#include "batch/run_head.h"

#include "batch/history_record.h"
#include "text/runtime_error.h"

namespace {

String Formatted(const std::tm& time, const char* format) {
  char text[32];
  return FromUtf8({text, std::strftime(text, sizeof text, format, &time)});
}

}  // namespace

RunHead MakeRunHead(std::time_t now, StringView name) {
  RunHead head;
  if (const std::tm* time = std::localtime(&now)) {
    head.Date = Formatted(*time, "%m-%d-%Y");
    head.Time = Formatted(*time, "%H:%M:%S");
  }
  const StringView trimmed = Trim(name);
  if (trimmed.size() < kShortestRunName) return head;
  if (!IsRecordable(trimmed))
    throw RuntimeError(kInvalidCall, "A run can't be named " + ToUtf8(trimmed));
  head.Name = trimmed;
  return head;
}

String RunLabel(const RunHead& head) {
  String label = head.Date + u" at " + head.Time;
  const StringView name = Trim(head.Name);
  if (name.size() >= kShortestRunName) label.append(u" (").append(name).append(u")");
  return label;
}
