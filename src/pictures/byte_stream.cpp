#include "pictures/byte_stream.h"

#include <utility>

namespace lumidex {

void ByteStream::Refill(std::size_t least) {
  if (next_ >= end_) return;
  const std::uint64_t left = held_ - at_ + (end_ - next_);
  const std::size_t wanted =
      std::max(least, static_cast<std::size_t>(std::min<std::uint64_t>(blockBytes_, left)));
  if (size_ < wanted) {
    // Not filled with zeros first: a header needs a fraction of a block.
    auto larger = std::make_unique_for_overwrite<std::uint8_t[]>(wanted);
    std::copy_n(block_.get() + at_, held_ - at_, larger.get());
    block_ = std::move(larger);
    size_ = wanted;
  } else {
    std::copy(block_.get() + at_, block_.get() + held_, block_.get());
  }
  held_ -= at_;
  at_ = 0;
  const std::size_t room = static_cast<std::size_t>(std::min<std::uint64_t>(size_ - held_, end_ - next_));
  const std::size_t count = source_->ReadAt(next_, std::span(block_.get() + held_, room));
  held_ += count;
  next_ += count;
  if (count < room) end_ = next_;  // a read error ends the stream as the end of the file does
}

std::size_t ByteStream::Read(std::span<std::uint8_t> into) {
  std::size_t done = 0;
  while (done < into.size()) {
    const Bytes ahead = Ahead(1);
    const Bytes part = ahead.first(std::min(ahead.size(), into.size() - done));
    if (part.empty()) break;
    std::ranges::copy(part, into.begin() + static_cast<std::ptrdiff_t>(done));
    Advance(part.size());
    done += part.size();
  }
  return done;
}

void ByteStream::Skip(std::uint64_t count) {
  const std::size_t here = static_cast<std::size_t>(std::min<std::uint64_t>(count, held_ - at_));
  at_ += here;
  next_ += std::min(count - here, end_ - std::min(end_, next_));
}

}  // namespace lumidex
