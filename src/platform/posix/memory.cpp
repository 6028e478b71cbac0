#include "platform/posix/memory.h"

#ifdef __GLIBC__
#include <malloc.h>

#include <algorithm>
#include <thread>
#endif

namespace lumidex {

void GiveLargeBlocksBack() {
#ifdef __GLIBC__
  mallopt(M_MMAP_THRESHOLD, 1 << 18);
#endif
}

void ShareHeaps() {
#ifdef __GLIBC__
  mallopt(M_ARENA_MAX, static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 2U, 64U)));
#endif
}

void GiveFreeMemoryBack() {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
}

}  // namespace lumidex
