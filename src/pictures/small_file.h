#pragma once
// A small file must not buy much time or memory, however large the picture it claims to hold.

#include <algorithm>
#include <cstdint>

#include "pictures/refusal.h"

namespace lumidex {

// Raises InvalidPicture when a file of at most one mebibyte would have `bytes` handled for it: what it
// unpacks to or what lies in memory at once, whichever is more, a second time for a second pass over it.
// Files of real pictures stay far below: their pixels do not shrink to a four-hundredth.
inline void CheckSmallFile(std::int64_t bytes, std::uint64_t fileSize) {
  constexpr std::uint64_t small = std::uint64_t{1} << 20;
  constexpr std::int64_t most = std::int64_t{448} << 20;
  if (fileSize <= small && bytes > most) Refuse("The picture is too large for so small a file");
}

}  // namespace lumidex
