#pragma once
// Open files as bytes. Each failure is a RuntimeError that names the file and the cause.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

#include "text/text.h"

namespace sys {
class Descriptor;
}

// An open regular file, read in blocks. Opening never waits: a pipe or a device is refused. It
// keeps its own place, so readers of one open file don't disturb each other.
class InputFile {
 public:
  explicit InputFile(const String& path);
  // One that is open already, from its start.
  InputFile(std::shared_ptr<sys::Descriptor> file, const String& path);

  // Up to `size` bytes; 0 at the end.
  std::size_t Read(char* buffer, std::size_t size);
  // Hands over what is left of the file, in blocks.
  void ReadRest(const std::function<void(std::string_view bytes)>& use);
  void Rewind() { place_ = 0; }
  std::uint64_t Size() const;
  const String& Path() const { return path_; }

 private:
  std::shared_ptr<sys::Descriptor> file_;
  std::uint64_t place_ = 0;
  String path_;
};

// A file that is written from its start; buffered by its user.
class OutputFile {
 public:
  // A work file of this user alone, mode 0600. One that is there is emptied; a link, or a file that
  // others own, name or may read, is replaced by a new file and never written to.
  explicit OutputFile(const String& path);
  // One that is open for reading and writing already, and empty.
  OutputFile(std::shared_ptr<sys::Descriptor> file, const String& path);
  OutputFile(OutputFile&&) noexcept = default;
  OutputFile& operator=(OutputFile&&) noexcept = default;

  void Write(std::string_view bytes);
  // Empties the file and gives what was in it, now a file without a name beside this one.
  InputFile TakeContent();
  // Reports what only shows when the file is closed.
  void Close();
  const String& Path() const { return path_; }

 private:
  std::shared_ptr<sys::Descriptor> file_;
  std::uint64_t place_ = 0;
  String path_;
};
