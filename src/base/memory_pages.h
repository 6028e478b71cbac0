#pragma once
// Memory fresh from the system is provided page by page, as each is written to for the first time. Asked for
// together they cost the system a third less.

#include <cstddef>
#include <span>

namespace lumidex {

// Has the system provide the pages that these bytes lie in. What they hold stays as it is. Where the system
// has no such call nothing happens.
void ProvidePages(std::span<std::byte> bytes);

// The pages of a block that is written from its beginning to its end, provided shortly before: all of a large
// block at once would push what is being worked on out of the processor's cache.
class PagesAhead {
 public:
  PagesAhead() = default;
  // The block must live as long as anything is reached.
  explicit PagesAhead(std::span<std::byte> block);

  // What lies before `end` is about to be written.
  void Reach(const void* end) {
    if (end > missing_.data() && !missing_.empty()) ProvideUpTo(static_cast<const std::byte*>(end));
  }

 private:
  void ProvideUpTo(const std::byte* end);

  std::span<std::byte> missing_;
};

}  // namespace lumidex
