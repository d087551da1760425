#include "tools/lines/text_lines.h"

#include "text/runtime_error.h"

StringView TextSource::ReadLine() {
  if (AtEnd()) throw RuntimeError(kInputPastEnd, "Input past the end of the text");
  const std::size_t end = rest_.find(kCr);
  const StringView line = rest_.substr(0, end);
  rest_.remove_prefix(line.size());
  if (!rest_.empty()) rest_.remove_prefix(rest_.starts_with(kCrLf) ? 2 : 1);
  return line;
}
