#include "pictures/codecs/gif_indices.h"

#include <algorithm>

namespace lumidex {
namespace {

constexpr int longestCode = 12;

}  // namespace

GifIndices::GifIndices(ByteStream from) : from_(std::move(from)) {
  const Bytes byte = from_.Take(1);
  plainBits_ = byte.empty() ? longestCode : byte[0];
  // Indices of more bits than a palette has are of no use, but writers that state so many do not use them.
  if (plainBits_ < 1 || plainBits_ >= longestCode) {
    ended_ = true;
    return;
  }
  clearCode_ = 1 << plainBits_;
  for (int code = 0; code < clearCode_; ++code) {
    const auto place = static_cast<std::size_t>(code);
    length_[place] = 1;
    suffix_[place] = first_[place] = static_cast<std::uint8_t>(code);
  }
  Clear();
}

void GifIndices::Clear() {
  codeBits_ = plainBits_ + 1;
  nextCode_ = clearCode_ + 2;
  last_ = none;
}

// `block_` stays valid until the stream is read again, which is here.
bool GifIndices::NextBlock() {
  const Bytes length = from_.Take(1);
  const std::size_t count = length.empty() ? 0 : length[0];
  block_ = from_.Take(count);
  blockPlace_ = 0;
  return !block_.empty();
}

int GifIndices::NextCode() {
  while (bitCount_ < codeBits_) {
    if (blockPlace_ == block_.size() && !NextBlock()) return none;
    bits_ |= std::uint64_t{block_[blockPlace_++]} << bitCount_;
    bitCount_ += 8;
  }
  const auto code = static_cast<int>(bits_ & ((1U << codeBits_) - 1));
  bits_ >>= codeBits_;
  bitCount_ -= codeBits_;
  return code;
}

void GifIndices::Write(int code, std::uint8_t* end) const {
  auto place = static_cast<std::size_t>(code);
  for (std::size_t left = length_[place]; left > 0; --left) {
    *--end = suffix_[place];
    place = prefix_[place];
  }
}

std::size_t GifIndices::Read(std::span<std::uint8_t> room) {
  std::size_t done = std::min(room.size(), restEnd_ - restPlace_);
  std::copy_n(rest_.begin() + static_cast<std::ptrdiff_t>(restPlace_), done, room.begin());
  restPlace_ += done;
  while (done < room.size() && !ended_) {
    const int code = NextCode();
    if (code == clearCode_) {
      Clear();
      continue;
    }
    // The dictionary never has more than one code that is still to be made, of the string before and its
    // first.
    const bool isNew = code == nextCode_ && last_ != none && nextCode_ < static_cast<int>(mostCodes);
    if (code == none || code == clearCode_ + 1 || (code >= nextCode_ && !isNew) ||
        (last_ == none && code > clearCode_)) {
      ended_ = true;
      break;
    }
    if (last_ != none && nextCode_ < static_cast<int>(mostCodes)) {
      const auto place = static_cast<std::size_t>(nextCode_), before = static_cast<std::size_t>(last_);
      prefix_[place] = static_cast<std::uint16_t>(last_);
      length_[place] = static_cast<std::uint16_t>(length_[before] + 1);
      first_[place] = first_[before];
      suffix_[place] = first_[isNew ? before : static_cast<std::size_t>(code)];
      ++nextCode_;
      if (nextCode_ == 1 << codeBits_ && codeBits_ < longestCode) ++codeBits_;
    }
    last_ = code;
    const std::size_t length = length_[static_cast<std::size_t>(code)];
    if (length <= room.size() - done) {
      Write(code, room.data() + done + length);
      done += length;
      continue;
    }
    Write(code, rest_.data() + length);
    restPlace_ = room.size() - done;
    restEnd_ = length;
    std::copy_n(rest_.begin(), restPlace_, room.begin() + static_cast<std::ptrdiff_t>(done));
    done = room.size();
  }
  return done;
}

}  // namespace lumidex
