#include "platform/posix/memory.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace lumidex {

void GiveLargeBlocksBack() {
#ifdef __GLIBC__
  mallopt(M_MMAP_THRESHOLD, 1 << 20);
#endif
}

void GiveFreeMemoryBack() {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
}

}  // namespace lumidex
