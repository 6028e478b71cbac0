#include "pictures/pack_bits.h"

#include <algorithm>

namespace lumidex {

std::size_t PackBits::Read(std::span<std::uint8_t> into) {
  std::size_t done = 0;
  while (done < into.size()) {
    if (left_ == 0) {
      if (from_.AtEnd()) break;
      const unsigned count = from_.U8();
      if (count == 128) continue;
      copies_ = count < 128;
      left_ = copies_ ? count + 1 : 257 - count;
      if (!copies_) {
        if (from_.AtEnd()) {
          left_ = 0;
          break;
        }
        value_ = from_.U8();
      }
    }
    const std::size_t count = std::min(left_, into.size() - done);
    const auto target = into.subspan(done, count);
    if (copies_) {
      const Bytes taken = from_.Take(count);
      std::ranges::copy(taken, target.begin());
      done += taken.size();
      if (taken.size() < count) {
        left_ = 0;
        break;
      }
    } else {
      std::ranges::fill(target, value_);
      done += count;
    }
    left_ -= count;
  }
  return done;
}

}  // namespace lumidex
