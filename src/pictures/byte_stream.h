#pragma once
// Reads a stretch of a file from front to back through one small block, so that decoding a large file does
// not cost the memory to hold it. Past the end it gives nothing.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>

#include "pictures/picture_data.h"

namespace lumidex {

class ByteStream {
 public:
  // Small enough to stay in the processor's cache together with the row that is made of it.
  static constexpr std::size_t blockSize = 65536;

  // From `offset` to `end`, or to the end of the file where that comes first. The file must outlive the
  // stream.
  ByteStream(const PictureData& data, std::uint64_t offset, std::uint64_t end = PictureData::MostBytes)
      : ByteStream(data.Source(), offset, blockSize, std::min(end, data.Size())) {}
  // With another size of block: that of the head, for whoever needs no more.
  ByteStream(const ByteSource& source, std::uint64_t offset, std::size_t blockBytes,
             std::uint64_t end = std::numeric_limits<std::uint64_t>::max())
      : source_(&source), blockBytes_(blockBytes), next_(offset), end_(end) {}

  // What is at hand without a further read: at least `least` bytes unless the end is nearer, and all there
  // is when they are few. Valid until the next call.
  Bytes Ahead(std::size_t least) {
    if (held_ - at_ < least) Refill(least);
    return Bytes(block_.get() + at_, held_ - at_);
  }
  // Moves on by `count` of the bytes ahead.
  void Advance(std::size_t count) { at_ += std::min(count, held_ - at_); }
  // The next `count` bytes, fewer at the end; valid until the next call.
  Bytes Take(std::size_t count) {
    const Bytes ahead = Ahead(count);
    const Bytes taken = ahead.first(std::min(count, ahead.size()));
    at_ += taken.size();
    return taken;
  }
  // Fills `into` as far as there are bytes and returns how many there were.
  std::size_t Read(std::span<std::uint8_t> into);
  // Leaves out bytes that need not be at hand; they are not read.
  void Skip(std::uint64_t count);
  // The next byte, -1 at the end.
  int Next() {
    if (at_ == held_) Refill(1);
    return at_ == held_ ? -1 : block_[at_++];
  }
  // Takes the last byte back. Only directly after Next, and not at the end.
  void Back() { --at_; }

  // The place in the file of the next byte.
  std::uint64_t Position() const { return next_ - (held_ - at_); }

 private:
  void Refill(std::size_t least);

  const ByteSource* source_;
  std::size_t blockBytes_;
  std::uint64_t next_;  // the place in the file behind the block
  std::uint64_t end_;
  std::unique_ptr<std::uint8_t[]> block_;
  std::size_t size_ = 0;           // of the block
  std::size_t at_ = 0, held_ = 0;  // the bytes still ahead in the block
};

}  // namespace lumidex
