#pragma once
// A run of tools on a file. A tool reads the lines of Input and hands its result to Write; Next
// makes that the input of the tool behind it. The file itself is not changed: whoever runs the
// tools puts the last result where it belongs.

#include <functional>
#include <optional>

#include "platform/system/text_file.h"
#include "platform/system/work_file.h"

class FileRun {
 public:
  // Results are kept in files of `workFolder` without a name. RuntimeError where the file can't be
  // read.
  FileRun(const String& path, const String& workFolder);
  // Of the file that the run is about.
  const String& Path() const { return path_; }

  // At its first line when a tool begins.
  TextReader& Input() { return *input_; }
  // The same as bytes, from the start.
  InputFile Source() const;

  // Makes the result in the format of the input. A tool that fails leaves none.
  void Write(const std::function<void(TextWriter&)>& write);
  // Takes the result from a file that another program has written, in whatever format.
  void Take(InputFile file);
  // The next result goes straight into this file.
  void SendTo(OutputFile file) { destination_ = std::move(file); }

  // Whether any tool so far has made a result; one that does nothing has not.
  bool HasResult() const { return hasResult_ || source_; }
  // Results that tools have made so far.
  int ResultCount() const { return resultCount_; }
  // The bytes of the last result that stands in a file of the run's own.
  InputFile Result() const { return hasResult_ ? result_->Read() : source_->Read(); }

  // The result, where there is one, becomes the input: in the format that it was written in, which
  // a text that has become blank or plain ASCII no longer shows.
  void Next();

  // A failure is one of the program that a step names.
  bool CheckingRunProgram = false;

 private:
  String path_;
  String workFolder_;
  // Of the file in bytes; results are expected to be about as large.
  std::uint64_t size_ = 0;
  // What the input is read from, where that is no longer the file.
  std::optional<WorkFile> source_;
  std::optional<TextReader> input_;
  std::optional<WorkFile> result_;
  std::optional<OutputFile> destination_;
  // None where another program wrote the result.
  std::optional<TextFormat> resultFormat_;
  bool hasResult_ = false;
  int resultCount_ = 0;
};
