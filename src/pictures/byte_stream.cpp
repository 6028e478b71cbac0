#include "pictures/byte_stream.h"

namespace lumidex {

void ByteStream::Refill(std::size_t least) {
  // Small enough to stay in the processor's cache together with the row that is made of it.
  constexpr std::size_t blockSize = 65536;
  if (next_ >= end_) return;
  if (block_.size() < std::max(least, blockSize)) block_.resize(std::max(least, blockSize));
  std::copy(block_.begin() + static_cast<std::ptrdiff_t>(at_),
            block_.begin() + static_cast<std::ptrdiff_t>(held_), block_.begin());
  held_ -= at_;
  at_ = 0;
  const std::size_t room =
      static_cast<std::size_t>(std::min<std::uint64_t>(block_.size() - held_, end_ - next_));
  const std::size_t count = data_->Source().ReadAt(next_, std::span(block_).subspan(held_, room));
  held_ += count;
  next_ += count;
  if (count < room) end_ = next_;  // a read error ends the stream as the end of the file does
}

}  // namespace lumidex
