#pragma once
// A folder for one test, gone with the object.

#include <string>

#include "text/text.h"

class TempFolder {
 public:
  TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder();

  const String& Path() const { return path_; }
  // The path of a file in it.
  String operator/(StringView name) const;
  // Makes a file with these bytes and returns its path.
  String Put(StringView name, const std::string& bytes) const;

 private:
  String path_;
};

// The bytes of a file; fails the test when it can't be read.
std::string BytesOf(const String& path);
