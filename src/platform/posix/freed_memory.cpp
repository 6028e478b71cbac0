#include "platform/posix/freed_memory.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace lumidex {

void GiveLargeBlocksBack() {
#ifdef __GLIBC__
  mallopt(M_MMAP_THRESHOLD, 1 << 20);
#endif
}

}  // namespace lumidex
