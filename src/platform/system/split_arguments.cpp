#include "platform/system/process.h"

std::vector<String> SplitArguments(StringView commandLine) {
  std::vector<String> arguments;
  String argument;
  bool any = false;
  bool quoted = false;
  for (const char16_t c : commandLine) {
    if (c == u'"') {
      quoted = !quoted;
      any = true;
    } else if (c == u' ' && !quoted) {
      if (any) arguments.push_back(std::move(argument));
      argument.clear();
      any = false;
    } else {
      argument += c;
      any = true;
    }
  }
  if (any) arguments.push_back(std::move(argument));
  return arguments;
}
