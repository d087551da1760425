#pragma once
// Reading a file block by block where a character may lie across the end of a block.

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>

#include "platform/system/byte_file.h"

inline constexpr std::size_t kBlockSize = 128 * 1024;

// Calls `use(bytes, isLast)` with block after block. It returns how many of the bytes it has used;
// the others, fewer than half a block, come again in front of the next ones. The last call may
// bring nothing new.
template <typename Use>
void ReadBlocks(InputFile& file, Use use) {
  // A small file needs no whole block.
  const std::size_t size =
      static_cast<std::size_t>(std::clamp<std::uint64_t>(file.Size() + 1, 64, kBlockSize));
  const auto block = std::make_unique_for_overwrite<char[]>(size);
  std::size_t kept = 0;
  while (true) {
    const std::size_t got = file.Read(block.get() + kept, size - kept);
    const std::size_t filled = kept + got;
    const std::size_t used = use(std::string_view(block.get(), filled), got == 0);
    if (got == 0) return;
    kept = filled - used;
    std::memmove(block.get(), block.get() + used, kept);
  }
}
