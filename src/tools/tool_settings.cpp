#include "tools/tool_settings.h"

bool IsSet(const ToolSettings& settings) {
  bool set = false;
  bool first = true;
  ForEachField(settings, [&](const auto& values, const auto& field) {
    if (first) set = !(values.*field.Text).empty();
    first = false;
  });
  return set;
}
