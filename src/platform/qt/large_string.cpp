#include "platform/qt/large_string.h"

#include <memory>
#include <sys/mman.h>
#include <unistd.h>

String WithRoomFor(std::size_t length) {
  // Below this a few faults cost less than the call.
  constexpr std::size_t kLarge = 1 << 18;
  String text;
  text.reserve(length);
  if (length < kLarge) return text;
  const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  void* first = text.data();
  std::size_t room = length * sizeof(char16_t);
  // A kernel that doesn't know this call leaves it to the faults.
  if (std::align(page, page, first, room)) madvise(first, room / page * page, MADV_POPULATE_WRITE);
  return text;
}
