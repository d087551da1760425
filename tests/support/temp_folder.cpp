#include "support/temp_folder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

#include "platform/system/files.h"

TempFolder::TempFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "wordflurn-test-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = FromUtf8(name);
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(ToUtf8(path_), ignored);
}

String TempFolder::operator/(StringView name) const { return JoinPath(path_, name); }

String TempFolder::Put(StringView name, const std::string& bytes) const {
  String path = *this / name;
  std::ofstream(ToUtf8(path), std::ios::binary) << bytes;
  return path;
}

std::string BytesOf(const String& path) {
  std::ifstream file(ToUtf8(path), std::ios::binary);
  if (!file) {
    ADD_FAILURE() << "can't read " << ToUtf8(path);
    return {};
  }
  return {std::istreambuf_iterator<char>(file), {}};
}
