#include "base/memory_pages.h"

#include <algorithm>
#include <cstdint>

#ifdef __linux__
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace lumidex {
namespace {

// Other threads that want memory wait for each call.
constexpr std::size_t mostAtOnce = 256 << 10;
// Smaller blocks are seldom fresh from the system.
constexpr std::size_t largeBlock = 1 << 20;

}  // namespace

void ProvidePages([[maybe_unused]] std::span<std::byte> bytes) {
#ifdef MADV_POPULATE_WRITE
  // The call wants whole pages, and memory is mapped in whole pages.
  static const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
  const std::size_t before = reinterpret_cast<std::uintptr_t>(bytes.data()) % page;
  std::span<std::byte> pages(bytes.data() - before, before + bytes.size());
  while (!pages.empty()) {
    const std::size_t part = std::min(mostAtOnce, pages.size());
    if (madvise(pages.data(), part, MADV_POPULATE_WRITE) != 0) return;
    pages = pages.subspan(part);
  }
#endif
}

PagesAhead::PagesAhead(std::span<std::byte> block) {
  if (block.size() >= largeBlock) missing_ = block;
}

void PagesAhead::ProvideUpTo(const std::byte* end) {
  const auto reached = static_cast<std::size_t>(end - missing_.data());
  const std::size_t provided = std::min(std::max(reached, mostAtOnce), missing_.size());
  ProvidePages(missing_.first(provided));
  missing_ = missing_.subspan(provided);
}

}  // namespace lumidex
