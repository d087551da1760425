#pragma once
// The lines of a text in memory.

#include "tools/lines/line_io.h"

class TextSource : public LineSource {
 public:
  // The text must outlive the source.
  explicit TextSource(StringView text) : rest_(text) {}
  bool AtEnd() const override { return rest_.empty(); }
  StringView ReadLine() override;

 private:
  StringView rest_;
};

class TextSink : public LineSink {
 public:
  void Print(StringView line) override { Text.append(line).append(kCrLf); }
  void Write(StringView text) override { Text.append(text); }

  String Text;
};
