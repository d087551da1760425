#pragma once
// Open files as bytes. Each failure is a RuntimeError that names the file and the cause.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

#include "text/text.h"

// An open regular file, read in blocks. Opening never waits: a pipe or a device is refused.
class InputFile {
 public:
  explicit InputFile(const String& path);
  // A copy of the file as it is now, on the same file system. It has no name, so nothing is left
  // behind, not even after a kill; Path() is that of the original.
  static InputFile CopyOf(const String& path);
  InputFile(InputFile&& other) noexcept;
  InputFile& operator=(InputFile&& other) noexcept;
  ~InputFile();

  // Up to `size` bytes; 0 at the end.
  std::size_t Read(char* buffer, std::size_t size);
  // Hands over what is left of the file, in blocks.
  void ReadRest(const std::function<void(std::string_view bytes)>& use);
  void Rewind();
  std::uint64_t Size() const;
  const String& Path() const { return path_; }

 private:
  InputFile(int descriptor, const String& path) : descriptor_(descriptor), path_(path) {}

  int descriptor_ = -1;
  String path_;
};

// A file made or emptied for writing, mode 0600 when it is made; buffered by its user.
class OutputFile {
 public:
  explicit OutputFile(const String& path);
  OutputFile(OutputFile&& other) noexcept;
  OutputFile& operator=(OutputFile&& other) noexcept;
  ~OutputFile();

  void Write(std::string_view bytes);
  // Reports what only shows when the file is closed.
  void Close();
  const String& Path() const { return path_; }

 private:
  int descriptor_ = -1;
  String path_;
};
