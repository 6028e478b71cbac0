#include "pictures/codecs/wpg_rows.h"

#include <algorithm>
#include <functional>

namespace lumidex {

bool Wpg1Rows::Next(std::span<std::uint8_t> row) {
  if (repeats_ > 0) {
    --repeats_;
    return true;
  }
  std::size_t done = 0;
  while (done < row.size()) {
    if (left_ == 0) {
      if (from_.AtEnd()) return false;
      const unsigned code = from_.U8();
      if (code == 0) {
        const unsigned count = from_.U8();
        if (count == 0) continue;
        if (done > 0) return false;
        repeats_ = count - 1;
        return true;
      }
      left_ = code & 0x7F;
      copies_ = (code & 0x80) == 0;
      if (code == 0x80) {
        left_ = from_.U8();
        value_ = 0xFF;
      } else if (!copies_) {
        if (from_.AtEnd()) return false;
        value_ = from_.U8();
      }
    }
    const auto target = row.subspan(done, std::min(left_, row.size() - done));
    if (copies_) {
      const Bytes taken = from_.Take(target.size());
      std::ranges::copy(taken, target.begin());
      if (taken.size() < target.size()) return false;
    } else {
      std::ranges::fill(target, value_);
    }
    done += target.size();
    left_ -= target.size();
  }
  return true;
}

bool Wpg2Rows::ReadCode(bool atRowStart) {
  if (from_.AtEnd()) return false;
  const unsigned code = from_.U8();
  const auto repeat = [&](unsigned count) {
    copies_ = false;
    place_ = 0;
    left_ = (count + 1) * elementSize_;
  };
  switch (code) {
    case 0x7D:
      elementSize_ = from_.U8();
      return elementSize_ >= 1 && elementSize_ <= element_.size();
    case 0x7E:
      differs_ = !differs_;
      return true;
    case 0x7F:
    case 0xFF:
      element_.fill(code == 0xFF ? 0xFF : 0);
      repeat(from_.U8());
      return true;
    case 0xFD:
      repeat(from_.U8());
      return true;
    case 0xFE:
      repeats_ = from_.U8() + 1U;
      return atRowStart;
    default:
      break;
  }
  if (code >= 0x80) {
    const Bytes element = from_.Take(elementSize_);
    std::ranges::copy(element, element_.begin());
    repeat(code & 0x7F);
    return element.size() == elementSize_;
  }
  copies_ = true;
  place_ = 0;
  left_ = (code + 1) * elementSize_;
  return true;
}

bool Wpg2Rows::Put(std::span<std::uint8_t> target) {
  if (!copies_ && elementSize_ == 1) {
    std::ranges::fill(target, element_[0]);
    return true;
  }
  if (!copies_) {
    for (std::uint8_t& byte : target) {
      byte = element_[place_];
      place_ = place_ + 1 == elementSize_ ? 0 : place_ + 1;
    }
    return true;
  }
  const Bytes taken = from_.Take(target.size());
  std::ranges::copy(taken, target.begin());
  // A later code may repeat the last element.
  for (std::size_t i = taken.size() - std::min(taken.size(), elementSize_); i < taken.size(); ++i)
    element_[(place_ + i) % elementSize_] = taken[i];
  place_ = (place_ + taken.size()) % elementSize_;
  return taken.size() == target.size();
}

bool Wpg2Rows::Next(std::span<std::uint8_t> row) {
  differs_ = false;
  std::size_t done = 0;
  while (done < row.size()) {
    if (repeats_ > 0) {
      --repeats_;
      return true;
    }
    if (left_ == 0) {
      if (!ReadCode(done == 0)) return false;
      continue;
    }
    const auto target = row.subspan(done, std::min(left_, row.size() - done));
    if (differs_) before_.assign(target.begin(), target.end());
    if (!Put(target)) return false;
    if (differs_) std::ranges::transform(target, before_, target.begin(), std::bit_xor<std::uint8_t>());
    done += target.size();
    left_ -= target.size();
  }
  return true;
}

}  // namespace lumidex
