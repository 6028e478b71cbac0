#include "platform/posix/memory.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
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

void GiveFreeMemoryBack() {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
}

void ProvidePages(std::span<std::byte> bytes) {
#ifdef MADV_POPULATE_WRITE
  // The call wants whole pages, and memory is mapped in whole pages.
  const std::size_t before = reinterpret_cast<std::uintptr_t>(bytes.data()) % sysconf(_SC_PAGESIZE);
  std::span<std::byte> pages(bytes.data() - before, before + bytes.size());
  // Other threads that want memory wait for each call.
  constexpr std::size_t most = 256 << 10;
  while (!pages.empty()) {
    const std::size_t part = std::min(most, pages.size());
    if (madvise(pages.data(), part, MADV_POPULATE_WRITE) != 0) return;
    pages = pages.subspan(part);
  }
#endif
}

}  // namespace lumidex
