#pragma once
// A file that only grows, for this user alone (mode 0600).

#include <cstdint>
#include <string_view>

#include "text/text.h"

// Failures are RuntimeError with the path and the cause.
class RecordFile {
 public:
  // Makes the file. RuntimeError 75 when something stands there already.
  explicit RecordFile(const String& path);
  RecordFile(const RecordFile&) = delete;
  RecordFile& operator=(const RecordFile&) = delete;
  ~RecordFile();

  // All of the bytes or, as far as the system allows, none of them: a part of them that was written
  // is cut off again.
  void Append(std::string_view bytes);
  // Returns when all of it is on the disk. After a failure nobody knows what is; the file then
  // takes no more.
  void Flush();
  // Reports what only shows when the file is closed. The last call.
  void Close();

 private:
  void CheckWhole() const;

  int descriptor_ = -1;
  std::uint64_t size_ = 0;
  bool broken_ = false;
  String path_;
};
