#pragma once
// A result that is written and then read, by this process alone.

#include "platform/system/byte_file.h"

// Made in a folder with mode 0600 and without a name, so that nobody else can put another content
// in its place: what is read is what was written, through the same open file. Nothing is left
// behind, not even after a kill.
class WorkFile {
 public:
  // expected: about how many bytes it will hold. A small one is kept in memory.
  explicit WorkFile(const String& folder, std::uint64_t expected = UINT64_MAX);

  // Empties it and writes from its start.
  OutputFile Write();
  // From its start, with a place of its own; any number of readers at a time.
  InputFile Read() const { return {file_, path_}; }

 private:
  std::shared_ptr<sys::Descriptor> file_;
  // In messages only.
  String path_;
};
