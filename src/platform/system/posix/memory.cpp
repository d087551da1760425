#include "platform/system/memory.h"

#include <malloc.h>

void KeepFreedMemory() {
#ifdef __GLIBC__
  // Large blocks come from the heap too, and its end is never cut off.
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, -1);
#endif
}
