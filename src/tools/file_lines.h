#pragma once
// The lines of a text file.

#include "platform/system/text_file.h"
#include "tools/lines/line_io.h"

class FileSource : public LineSource {
 public:
  explicit FileSource(TextReader& reader) : reader_(reader) {}
  bool AtEnd() const override { return reader_.AtEnd(); }
  StringView ReadLine() override { return reader_.ReadLine(); }
  String TakeLine() override { return reader_.TakeLine(); }
  void Release() override { reader_.Release(); }

 private:
  TextReader& reader_;
};

class FileSink : public LineSink {
 public:
  explicit FileSink(TextWriter& writer) : writer_(writer) {}
  void Print(StringView line) override { writer_.Print(line); }
  void Write(StringView text) override { writer_.Write(text); }

 private:
  TextWriter& writer_;
};
