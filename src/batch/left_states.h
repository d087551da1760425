#pragma once
// What a run has left: size, time and checksum of each file that it may have written, in the file
// WFMFFEND.DAT beside the history. So undo can tell the files that were changed since.

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

#include "platform/system/file_copy.h"

inline constexpr StringView kLeftStatesName = u"WFMFFEND.DAT";

struct LeftState {
  FileStamp Stamp;
  std::uint64_t Checksum = 0;
};

// Takes bytes in pieces of any size; the same bytes give the same sum.
class Checksum {
 public:
  void Add(std::string_view bytes);
  std::uint64_t Value() const;

 private:
  void AddWord(std::uint64_t word);

  std::uint64_t sum_ = 0x243F6A8885A308D3;
  std::uint64_t size_ = 0;
  // The bytes behind the last whole word.
  std::string rest_;
};

// The state of the file behind a path as it is now; none where there is no regular file.
std::optional<LeftState> StateOf(const String& path);

// A line of the file, with its CR LF.
std::string FormatLeftState(const String& path, const std::optional<LeftState>& state);

// What the file tells.
struct LeftStates {
  struct Entry {
    // None: the run left no file there.
    std::optional<LeftState> State;
    // Entries in the order of the work.
    std::size_t Order = 0;
  };

  // Whether the run has kept any.
  bool Kept = false;
  std::size_t Count = 0;
  // By the path in the history; the last entry of a path counts.
  std::unordered_map<String, Entry> ByPath;
};
// Empty, and not Kept, when the file is not there or can't be read.
LeftStates ReadLeftStates(const String& folder);

// Whether the file behind a path is still what the run has left.
bool IsAsLeft(const String& path, const std::optional<LeftState>& left);
